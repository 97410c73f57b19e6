#include "Controller.h"
