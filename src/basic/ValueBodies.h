#pragma once

// The bodies that a value may refer to.
#include "basic/ArrayBody.h"    // IWYU pragma: export
#include "basic/DecimalBody.h"  // IWYU pragma: export
#include "basic/RecordBody.h"   // IWYU pragma: export
#include "basic/StringBody.h"   // IWYU pragma: export
#include "basic/Value.h"        // IWYU pragma: export
