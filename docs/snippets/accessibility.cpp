#include "horizontalslider.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QAccessibleWidget>

namespace accessibility_snippets {

class Gauge : public HorizontalSlider
{
    Q_OBJECT
};

class AccessibleGauge : public QAccessibleWidget
{
public:
    explicit AccessibleGauge(Gauge *gauge)
        : QAccessibleWidget(gauge, QAccessible::ProgressBar)
    {
    }
};

//! [factory]
QAccessibleInterface *tellGauges(const QString &className, QObject *object)
{
    auto *gauge = className == QLatin1String("Gauge") ? qobject_cast<Gauge *>(object) : nullptr;
    return gauge ? new AccessibleGauge(gauge) : nullptr;
}
//! [factory]

void install()
{
    //! [installed factory]
    QAccessible::installFactory(tellGauges);
    //! [installed factory]
}

void ask(HorizontalSlider *slider)
{
    //! [asked]
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(slider);
    QCOMPARE(interface->role(), QAccessible::Slider);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Microphone volume"));
    interface->valueInterface()->setCurrentValue(40);
    //! [asked]
}

} // namespace accessibility_snippets

#include "accessibility.moc"
