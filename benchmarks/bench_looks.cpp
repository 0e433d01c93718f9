#include "bench.h"
#include "customcomboxheader.h"
#include "orvlook.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <functional>

namespace {

constexpr int kWidgets = 200;
constexpr int kColumns = 10;
constexpr int kSwitches = 6;
constexpr QSize kSize(120, 32);
constexpr QSize kIconSize(20, 20);

QWidget *newHeader()
{
    auto *header = new CustomComboxHeader(nullptr);
    header->setText(QStringLiteral("Camera"));
    return header;
}

// The same parts, styled by the application.
QWidget *newStockHeader()
{
    auto *header = new QWidget;
    auto *layout = new QHBoxLayout(header);
    auto *text = new QLabel(QStringLiteral("Camera"));
    text->setObjectName(QStringLiteral("headerText"));
    layout->addWidget(text);
    auto *icon = new QLabel;
    icon->setObjectName(QStringLiteral("headerIcon"));
    icon->setFixedSize(kIconSize);
    layout->addWidget(icon);
    return header;
}

QString stockSheet(bool dark)
{
    return QStringLiteral(
               "QLabel#headerText{background:transparent; color: %1; font-size:16px; font-weight:Normal;}"
               "QLabel#headerIcon{border-image:url(%2);}")
        .arg(dark ? QStringLiteral("#F4F5F7") : QStringLiteral("#1F1F22"),
             dark ? QStringLiteral(":/orvcommonlib/dark/combox/down.png")
                  : QStringLiteral(":/images/images/combox/down.png"));
}

// Milliseconds of one switch with all widgets on the screen, painting included.
double switchTime(QWidget *(*newWidget)(), const std::function<void(bool)> &setDark)
{
    QWidget window;
    auto *layout = new QGridLayout(&window);
    for (int i = 0; i < kWidgets; ++i) {
        QWidget *widget = newWidget();
        widget->setFixedSize(kSize);
        layout->addWidget(widget, i / kColumns, i % kColumns);
    }
    setDark(false);
    window.show();
    QCoreApplication::processEvents();
    const double begin = Bench::processorNanoseconds();
    for (int i = 1; i <= kSwitches; ++i) {
        setDark(i % 2 == 1);
        QCoreApplication::processEvents();
    }
    return (Bench::processorNanoseconds() - begin) / kSwitches / 1e6;
}

void measure(Bench &bench)
{
    bench.compareValues(
        "OrvLook::setDark() / QApplication::setStyleSheet(), 200 widgets", "ms",
        [] { return switchTime(newHeader, &OrvLook::setDark); },
        [] {
            const double time =
                switchTime(newStockHeader, [](bool dark) { qApp->setStyleSheet(stockSheet(dark)); });
            qApp->setStyleSheet(QString());
            return time;
        });
    bench.compare(
        "OrvLook::color() / a colour from the palette",
        [] { Bench::keep(OrvLook::color(QStringLiteral("titleText"))); },
        [] { Bench::keep(QApplication::palette().color(QPalette::Text)); });
    bench.note(QStringLiteral(
        "A header is a widget with two labels, each with a sheet of its own; stock has one sheet for all."));
}

const BenchGroup group("looks", measure);

} // namespace
