#include "accessiblefactory.h"

#include <QtCore/QDir>

static void initResources()
{
    Q_INIT_RESOURCE(orvcommonlib);
    Q_INIT_RESOURCE(namedsheets);
}

// The name that programs linked with the static library ask for, so that this file and what it refers to are taken from
// the archive. The initialisers of those files do the work when the program starts.
extern "C" void orvcommonlib_startup()
{
    initResources();
    AccessibleFactory::askForTypesFirst();
}
