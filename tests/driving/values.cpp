#include "values.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QStringList>
#include <QtGui/QColor>
#include <QtGui/QIcon>
#include <QtGui/QKeySequence>
#include <QtWidgets/QWidget>

#include <limits>

namespace Driving::Values {

QString anyText(quint8 number)
{
    switch (number % 8) {
    case 0:
        return {};
    case 1:
        return QStringLiteral("a\nb");
    case 2:
        return {int(number) * 4, QLatin1Char('w')};
    case 3:
        return QString::fromUtf8("\xe6\x96\x87\xe5\xad\x97 \xd8\xb9\xd8\xb1\xd8\xa8\xd9\x8a");
    case 4:
        return QStringLiteral(":/images/images/combox/up.png");
    case 5:
        return QStringLiteral("<b>bold</b> & 'quoted' %1");
    default:
        return QStringLiteral("text %1").arg(number);
    }
}

int anyInt(quint8 number)
{
    constexpr int kLimits[] = {std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), 1 << 20,
                               -30000};
    if (number >= 0xfc)
        return kLimits[number - 0xfc];
    return number < 0xc0 ? number % 24 : 0xc0 - number;
}

namespace {

QVariant anyValue(int type, quint8 number)
{
    switch (type) {
    case QMetaType::Bool:
        return number % 2 == 0;
    case QMetaType::Int:
    case QMetaType::UInt:
        return anyInt(number);
    case QMetaType::QString:
        return anyText(number);
    case QMetaType::QStringList:
        return QVariant(
            QStringList{anyText(number), QStringLiteral("b"), anyText(number / 2)}.mid(number % 4));
    case QMetaType::QSize:
        return QSize(number % 60, number / 8);
    case QMetaType::QRect:
        return QRect(number % 16 - 4, number / 32, number / 3, number / 7);
    case QMetaType::QPoint:
        return QPoint(number, number / 2);
    case QMetaType::QColor:
        return QColor::fromRgba(0x01030507U * number);
    case QMetaType::QIcon:
        return QIcon(anyText(number));
    case QMetaType::QKeySequence:
        return QKeySequence(anyText(number));
    default:
        return {};
    }
}

bool isOfQt(const QMetaObject *owner)
{
    return owner->className()[0] == 'Q';
}

/// Of Qt's properties those that go with what the library's classes do.
bool isWorthSetting(const QMetaProperty &property)
{
    static const QStringList names{QStringLiteral("value"),
                                   QStringLiteral("sliderPosition"),
                                   QStringLiteral("orientation"),
                                   QStringLiteral("tracking"),
                                   QStringLiteral("checkable"),
                                   QStringLiteral("checked"),
                                   QStringLiteral("text"),
                                   QStringLiteral("currentIndex"),
                                   QStringLiteral("editable"),
                                   QStringLiteral("readOnly"),
                                   QStringLiteral("plainText"),
                                   QStringLiteral("iconSize"),
                                   QStringLiteral("keySequence"),
                                   QStringLiteral("toolTip"),
                                   QStringLiteral("invertedAppearance")};
    return property.isWritable() &&
           (!isOfQt(property.enclosingMetaObject()) || names.contains(QLatin1String(property.name())));
}

bool isWorthCalling(const QMetaMethod &method)
{
    // The first two block or destroy; a style sheet from anywhere is Qt's matter.
    static const QByteArrayList names{"exec", "deleteLater", "setStyleSheet", "showFullScreen",
                                      "animateClick"};
    return method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Public &&
           method.parameterCount() <= 1 && !names.contains(method.name()) && !method.name().startsWith('_');
}

} // namespace

void setAnyProperty(QWidget *widget, quint8 which, quint8 value)
{
    QVector<QMetaProperty> properties;
    for (int i = 0; i < widget->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = widget->metaObject()->property(i);
        if (isWorthSetting(property))
            properties.append(property);
    }
    if (properties.isEmpty())
        return;
    const QMetaProperty property = properties.at(which % properties.size());
    if (property.isEnumType()) {
        const QMetaEnum values = property.enumerator();
        property.write(widget, values.value(value % values.keyCount()));
    } else {
        property.write(widget, anyValue(property.userType(), value));
    }
}

void callAnySlot(QWidget *widget, quint8 which, quint8 value)
{
    QVector<QMetaMethod> methods;
    for (int i = QObject::staticMetaObject.methodCount(); i < widget->metaObject()->methodCount(); ++i) {
        const QMetaMethod method = widget->metaObject()->method(i);
        if (isWorthCalling(method))
            methods.append(method);
    }
    const QMetaMethod method = methods.at(which % methods.size());
    if (method.parameterCount() == 0) {
        method.invoke(widget, Qt::DirectConnection);
        return;
    }
    const QVariant argument = anyValue(method.parameterType(0), value);
    if (argument.isValid() && argument.userType() == method.parameterType(0))
        method.invoke(widget, Qt::DirectConnection,
                      QGenericArgument(method.parameterTypes().at(0).constData(), argument.constData()));
}

} // namespace Driving::Values
