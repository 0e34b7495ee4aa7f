// The one definition of the identifiers that the interface header declares.
#include <initguid.h>
// The header above changes what the one below means.
#include "corvid_interfaces.h"
