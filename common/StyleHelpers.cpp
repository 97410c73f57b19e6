#include "StyleHelpers.h"
