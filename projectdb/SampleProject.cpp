#include "projectdb/SampleProject.h"
