#pragma once

#include "orvcommonlib_global.h"

/// The library's own class: image helpers as static members. It holds no data.
class ORVCOMMONLIB_EXPORT orvcommonlib
{
public:
    orvcommonlib();
};
