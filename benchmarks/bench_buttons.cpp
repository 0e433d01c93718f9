#include "bench.h"
#include "canvas.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customtoolbutton.h"
#include "hoverevent.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QHoverEvent>
#include <QtGui/QImage>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <memory>
#include <vector>

namespace {

constexpr int kInstances = 100;

QImage picture()
{
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::darkCyan);
    return image;
}

QIcon icon()
{
    return {QPixmap::fromImage(picture())};
}

QString flatStyle(const char *type)
{
    return QStringLiteral(
               "%1{background:transparent;border:none;color:#FF4D4D;}%1:hover{background:#F5F6F7;}")
        .arg(QString::fromUtf8(type));
}

void sendHover(QWidget &widget, bool enter)
{
    QEnterEvent entering(QPointF(1, 1), QPointF(1, 1), widget.mapToGlobal(QPoint(1, 1)));
    QEvent leaving(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, enter ? &entering : &leaving);
    HoverEvent hover(enter ? QEvent::HoverEnter : QEvent::HoverLeave, QPointF(1, 1), QPointF(-1, -1));
    widget.setAttribute(Qt::WA_UnderMouse, enter);
    QCoreApplication::sendEvent(&widget, &hover);
}

// Instances that stay alive, so that what they hold can be counted.
template<typename Make>
double heapOfInstances(Make make)
{
    const double before = Bench::heapBytes();
    std::vector<std::unique_ptr<QWidget>> widgets;
    widgets.reserve(kInstances);
    for (int index = 0; index < kInstances; ++index)
        widgets.emplace_back(make());
    return (Bench::heapBytes() - before) / 1024;
}

QPushButton *newStockPictureButton()
{
    auto *button = new QPushButton(icon(), QStringLiteral("Button"));
    button->setIconSize(QSize(20, 20));
    button->setStyleSheet(flatStyle("QPushButton"));
    return button;
}

CustomPictureBtn *newPictureButton()
{
    auto *button = new CustomPictureBtn(picture(), QStringLiteral("Button"), 8, nullptr, false);
    button->setStyleSheet(flatStyle("QPushButton"));
    return button;
}

CustomizeIconButton *newIconButton()
{
    auto *button = new CustomizeIconButton(QSize(20, 20), QStringLiteral("Button"), 4, nullptr, true);
    const QString normal = QStringLiteral(":/images/images/combox/editbtn.png");
    button->setIconImage(normal, QStringLiteral(":/images/images/combox/addbtn.png"), normal, normal);
    button->setTextStyle(QStringLiteral("QLabel{color:#333333;}"), QStringLiteral("QLabel{color:#4B66EB;}"),
                         QString(), QString());
    return button;
}

QToolButton *newStockIconButton()
{
    auto *button = new QToolButton;
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setText(QStringLiteral("Button"));
    button->setStyleSheet(QStringLiteral(
        "QToolButton{border:none;background:transparent;color:#333333;"
        "qproperty-icon:url(:/images/images/combox/editbtn.png);qproperty-iconSize:20px;}"
        "QToolButton:hover{color:#4B66EB;qproperty-icon:url(:/images/images/combox/addbtn.png);}"));
    return button;
}

CustomToolButton *newToolButton()
{
    auto *button = new CustomToolButton(false, nullptr, Bottom);
    const QString image = QStringLiteral(":/images/images/combox/editbtn.png");
    button->updateImage(image, image, image, image);
    return button;
}

QToolButton *newStockToolButton(const QString &styleSheet)
{
    auto *button = new QToolButton;
    button->setStyleSheet(styleSheet);
    return button;
}

// Style sheets are parsed with the first look at them: a widget that nobody paints has not cost all.
void paintNew(QWidget *widget, Canvas &canvas)
{
    const std::unique_ptr<QWidget> owner(widget);
    widget->resize(120, 32);
    canvas.paint(*widget);
}

void measurePictureButton(Bench &bench)
{
    const std::unique_ptr<CustomPictureBtn> ours(newPictureButton());
    const std::unique_ptr<QPushButton> stock(newStockPictureButton());
    Canvas canvas(QSize(120, 32));
    ours->resize(120, 32);
    stock->resize(120, 32);
    bench.compare(
        "CustomPictureBtn: repaint / QPushButton", [&] { canvas.paint(*ours); },
        [&] { canvas.paint(*stock); });
    bench.compare(
        "CustomPictureBtn: construction", [] { delete newPictureButton(); },
        [] { delete newStockPictureButton(); });
    bench.compareValues(
        "CustomPictureBtn: heap of 100", "KiB", [] { return heapOfInstances(newPictureButton); },
        [] { return heapOfInstances(newStockPictureButton); });
}

void measureIconButton(Bench &bench)
{
    const std::unique_ptr<CustomizeIconButton> ours(newIconButton());
    const std::unique_ptr<QToolButton> stock(newStockIconButton());
    Canvas canvas(QSize(120, 32));
    ours->resize(120, 32);
    stock->resize(120, 32);
    bench.compare(
        "CustomizeIconButton: repaint / QToolButton", [&] { canvas.paint(*ours); },
        [&] { canvas.paint(*stock); });
    bench.compare(
        "CustomizeIconButton: enter, repaint, leave, repaint",
        [&] {
            sendHover(*ours, true);
            canvas.paint(*ours);
            sendHover(*ours, false);
            canvas.paint(*ours);
        },
        [&] {
            sendHover(*stock, true);
            canvas.paint(*stock);
            sendHover(*stock, false);
            canvas.paint(*stock);
        });
    bench.compare(
        "CustomizeIconButton: construction", [] { delete newIconButton(); },
        [] { delete newStockIconButton(); });
    bench.compare(
        "CustomizeIconButton: construction, painted once", [&] { paintNew(newIconButton(), canvas); },
        [&] { paintNew(newStockIconButton(), canvas); });
    bench.compareValues(
        "CustomizeIconButton: heap of 100", "KiB", [] { return heapOfInstances(newIconButton); },
        [] { return heapOfInstances(newStockIconButton); });
}

void measureToolButton(Bench &bench)
{
    const std::unique_ptr<CustomToolButton> ours(newToolButton());
    const QString styleSheet = ours->styleSheet();
    const std::unique_ptr<QToolButton> stock(newStockToolButton(styleSheet));
    Canvas canvas(QSize(32, 32));
    ours->resize(32, 32);
    stock->resize(32, 32);
    bench.compare(
        "CustomToolButton: repaint / QToolButton, the same sheet", [&] { canvas.paint(*ours); },
        [&] { canvas.paint(*stock); });
    bench.compare(
        "CustomToolButton: construction", [] { delete newToolButton(); },
        [&] { delete newStockToolButton(styleSheet); });
    bench.compareValues(
        "CustomToolButton: heap of 100", "KiB", [] { return heapOfInstances(newToolButton); },
        [&] { return heapOfInstances([&] { return newStockToolButton(styleSheet); }); });
}

const BenchGroup group("buttons", [](Bench &bench) {
    measurePictureButton(bench);
    measureIconButton(bench);
    measureToolButton(bench);
});

} // namespace
