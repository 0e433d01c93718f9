#include "orvcommonlib.h"

orvcommonlib::orvcommonlib() = default;
