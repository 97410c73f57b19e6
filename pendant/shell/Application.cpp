#include "Application.h"
