// A client of a function that has been deprecated: compiled in the ways that clients have to choose from.
#include <orvcommonlib_version.h>

#if ORV_DEPRECATED_SINCE(1, 1)
ORV_DEPRECATED_X("use newWay()") inline int oldWay()
{
    return 1;
}
#endif

int client()
{
    return oldWay();
}
