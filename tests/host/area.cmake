set(AREA_PARTS host)
