#pragma once

#include "stage.h"

/// The classes that the library exports, by family.
namespace Destruction {

QVector<Kind> dialogKinds();
QVector<Kind> buttonKinds();
QVector<Kind> comboBoxKinds();
QVector<Kind> sliderKinds();
QVector<Kind> textKinds();
QVector<Kind> hotkeyKinds();

} // namespace Destruction
