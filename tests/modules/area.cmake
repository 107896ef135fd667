set(AREA_PARTS host modules)
