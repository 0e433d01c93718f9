#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

class QWidget;

/// Values of many types, chosen by a number, and where to put them.
namespace Driving::Values {

QString anyText(quint8 number);
/// Mostly something that makes sense, now and then the most that there is.
int anyInt(quint8 number);

/// Sets one of the properties that the library's classes have, or one of a few of Qt's.
void setAnyProperty(QWidget *widget, quint8 which, quint8 value);
/// Calls one of the public slots that take nothing, or one value.
void callAnySlot(QWidget *widget, quint8 which, quint8 value);

} // namespace Driving::Values
