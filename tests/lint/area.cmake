# The lint module, on in-memory projects (no project file, no Qt).
set(AREA_PARTS host modules surface lint)
