#pragma once

#include <xcb/xcb.h>

// The header names a field with a word that C++ keeps for itself.
#define explicit explicitField // NOLINT
#include <xcb/xkb.h>
#undef explicit
