#pragma once

#include <QtCore/QtGlobal>

/// One round of a soak: opens and closes every dialog and every list.
namespace Soak {

void openAndCloseEverything(quint8 how);

} // namespace Soak
