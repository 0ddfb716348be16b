#include "measures/clsUnitMeasure.h"

// Nothing to define; the class has no members.
