#pragma once

// The host SDK as far as a plugin needs it. Plugins include this header and no other of the SDK.

#include "hostwindow.h"
#include "interfacemanager.h"
#include "logstreams.h"
#include "physicalbutton.h"
#include "pluginbase.h"
#include "pluginregister.h"
#include "rlcontentbase.h"
#include "rlcustomcommand.h"
#include "rlmanager.h"
