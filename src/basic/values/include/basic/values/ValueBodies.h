#pragma once

// The bodies that a value may refer to.
#include "basic/values/ArrayBody.h"    // IWYU pragma: export
#include "basic/values/DecimalBody.h"  // IWYU pragma: export
#include "basic/values/RecordBody.h"   // IWYU pragma: export
#include "basic/values/StringBody.h"   // IWYU pragma: export
#include "basic/values/Value.h"        // IWYU pragma: export
