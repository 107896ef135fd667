# The lint module, on in-memory projects (no project file, no Qt). It reads the entry table, whose rows
# name the pages, so it links the whole of Core.
set(AREA_PARTS)
