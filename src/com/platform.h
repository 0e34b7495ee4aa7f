// The system's headers of the automation world, in the one order in which they compile.
#pragma once

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <oleauto.h>
#include <ocidl.h>
#include <olectl.h>
// clang-format on
