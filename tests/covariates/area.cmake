set(AREA_PARTS host modules page_CPagPopulationCovars)
