# The density surface reader, on its own (no project, no muParser, no Qt).
set(AREA_PARTS host surface)
