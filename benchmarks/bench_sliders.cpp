#include "bench.h"
#include "custombidirectionslider.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"

#include <QtCore/QCoreApplication>
#include <QtGui/private/qhighdpiscaling_p.h>
#include <QtGui/QMouseEvent>
#include <QtSvg/QSvgRenderer>
#include <QtWidgets/QSlider>

#include <memory>
#include <vector>

namespace {

constexpr int kInstances = 100;
constexpr QSize kNewSize(142, 10);
constexpr QSize kNewHandle(10, 10);
constexpr int kLineWidth = 6;
constexpr int kHandleWidth = 24;

// The stock slider in the looks of each of ours.
const char kHorizontalSheet[] =
    "QSlider::groove:horizontal{height: 10px; border-radius: 5px; background: #FFFFFF;}"
    "QSlider::sub-page:horizontal{height: 10px; border-radius: 5px; background: #ABADBF;}"
    "QSlider::handle:horizontal{width: 12px; height: 12px; margin: -2px 0px; border-radius: 7px; "
    "border: 1px solid #1F1F22; background: #FCFCFD;}";
const char kNewSheet[] =
    "QSlider::groove:horizontal{height: 2px; border-radius: 1px; background: #EBEBEB;}"
    "QSlider::sub-page:horizontal{height: 2px; border-radius: 1px; background: #4B66EB;}"
    "QSlider::handle:horizontal{width: 6px; height: 6px; margin: -4px 0px; border-radius: 5px; "
    "border: 2px solid #4B66EB; background: #FFFFFF;}";
const char kBarSheet[] =
    "QSlider::groove:horizontal{height: 4px; border-radius: 2px; background: #E3E4EA;}"
    "QSlider::sub-page:horizontal{height: 4px; border-radius: 2px; background: #ABADBF;}"
    "QSlider::handle:horizontal{width: 10px; height: 10px; margin: -4px 0px; border-radius: 6px; "
    "border: 1px solid #1F1F22; background: #FCFCFD;}";
// A line that reaches the handle from one side, as the bidirectional slider has it from the centre.
const char kLineSheet[] =
    "QSlider::sub-page:horizontal{height: 6px; border-radius: 3px; background: #4B66EB;}";

// Without a sheet it is painted by the style, from pictures that it keeps.
QSlider *stockSlider(QWidget *parent, const QString &sheet, const QSize &size)
{
    auto *slider = new QSlider(Qt::Horizontal, parent);
    if (!sheet.isEmpty())
        slider->setStyleSheet(sheet);
    slider->setFixedSize(size);
    return slider;
}

QString bidirectionSheet()
{
    return CustomBidirectionSlider(kLineWidth, kHandleWidth, Qt::blue, nullptr).styleSheet();
}

void send(QWidget *widget, QEvent::Type type, int x)
{
    const QPoint pos(x, widget->height() / 2);
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), isMove ? Qt::NoButton : Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// One kind of slider, ours and its stock counterparts, each made by a function: one in the same looks, and one
// that does no more than any slider must.
struct Contest
{
    using Make = std::function<QWidget *(QWidget *parent)>;

    const char *name;
    Make ours;
    Make stock;
    Make plainStock;
    QStringList skin;
};

// Both stand in one window, so that both repaint over the same background. It is painted like any other but
// not brought to the screen: that takes the server longer than either slider takes to paint, and is no work
// of theirs.
class Stage
{
public:
    Stage(const Contest::Make &ours, const Contest::Make &stock)
        : m_ours(ours(&m_window))
        , m_stock(stock(&m_window))
    {
        m_ours->move(20, 10);
        m_stock->move(20, 60);
        m_window.resize(320, 100);
        m_window.setAttribute(Qt::WA_DontShowOnScreen);
        m_window.show();
    }

    QWidget *ours() const { return m_ours; }
    QWidget *stock() const { return m_stock; }

private:
    QWidget m_window;
    QWidget *m_ours;
    QWidget *m_stock;
};

Bench::Work repaint(QWidget *widget)
{
    return [widget] {
        widget->repaint();
    };
}

// Drags the handle, which stands at the left end, one pixel further each time, and back again.
Bench::Work dragStep(QWidget *widget)
{
    send(widget, QEvent::MouseButtonPress, kNewHandle.width() / 2);
    auto position = std::make_shared<int>(0);
    return [widget, position] {
        const int way = 120;
        *position = (*position + 1) % (2 * way);
        send(widget, QEvent::MouseMove, 10 + (*position < way ? *position : 2 * way - *position));
        widget->repaint();
    };
}

// Many sliders of one kind in a window: each is dragged across once, so that the handle comes to no place where
// it was painted before.
class FirstDrags
{
public:
    explicit FirstDrags(const Contest::Make &make)
    {
        for (int index = 0; index < kColumns * kRows; ++index) {
            QWidget *slider = make(&m_window);
            slider->move(index % kColumns * 240 + 5, index / kColumns * 35 + 3);
            m_sliders.push_back(slider);
        }
        m_window.resize(kColumns * 240, kRows * 35);
        m_window.setAttribute(Qt::WA_DontShowOnScreen);
        m_window.show();
    }

    Bench::Work step()
    {
        return [this] {
            QWidget *slider = m_sliders[m_current % m_sliders.size()];
            const int start = slider->height() / 2;
            if (m_way == 0)
                send(slider, QEvent::MouseButtonPress, start);
            ++m_way;
            send(slider, QEvent::MouseMove, start + m_way);
            slider->repaint();
            if (start + m_way + start < slider->width())
                return;
            send(slider, QEvent::MouseButtonRelease, start + m_way);
            ++m_current;
            m_way = 0;
        };
    }

private:
    static constexpr int kColumns = 6;
    static constexpr int kRows = 20;

    QWidget m_window;
    std::vector<QWidget *> m_sliders;
    std::size_t m_current = 0;
    int m_way = 0;
};

// Windows that are made while this lives have the device pixel ratio.
class AtRatio
{
public:
    explicit AtRatio(qreal ratio) { QHighDpiScaling::setGlobalFactor(ratio); }
    ~AtRatio() { QHighDpiScaling::setGlobalFactor(1); }
    Q_DISABLE_COPY(AtRatio)
};

Bench::Work construction(const Contest::Make &make)
{
    return [make] {
        const std::unique_ptr<QWidget> widget(make(nullptr));
        widget->ensurePolished();
    };
}

Bench::Measure kilobytes(const Contest::Make &make)
{
    return [make] {
        const double before = Bench::heapBytes();
        std::vector<std::unique_ptr<QWidget>> widgets;
        for (int i = 0; i < kInstances; ++i) {
            widgets.emplace_back(make(nullptr));
            widgets.back()->grab();
        }
        return (Bench::heapBytes() - before) / 1024;
    };
}

void runAtRatio(Bench &bench, const Contest &contest, qreal ratio)
{
    const AtRatio scope(ratio);
    const QString name = QStringLiteral("%1 at %2, plain: ").arg(QLatin1String(contest.name)).arg(ratio);
    const Stage stage(contest.ours, contest.plainStock);
    bench.compare(name + QStringLiteral("repaint"), repaint(stage.ours()), repaint(stage.stock()));
    bench.compare(name + QStringLiteral("drag step"), dragStep(stage.ours()), dragStep(stage.stock()));
    FirstDrags ours(contest.ours);
    FirstDrags stock(contest.plainStock);
    bench.compare(name + QStringLiteral("drag to new places"), ours.step(), stock.step());
}

void run(Bench &bench, const Contest &contest)
{
    const QString name = QString::fromLatin1(contest.name);
    {
        const Stage stage(contest.ours, contest.stock);
        bench.compare(name + QStringLiteral(": repaint"), repaint(stage.ours()), repaint(stage.stock()));
        bench.compare(name + QStringLiteral(": drag step"), dragStep(stage.ours()), dragStep(stage.stock()));
        if (!contest.skin.isEmpty()) {
            bench.compare(name + QStringLiteral(": repaint against parsing the skin"), repaint(stage.ours()),
                          [&] {
                              for (const QString &file : contest.skin)
                                  Bench::keep(QSvgRenderer(file).isValid());
                          });
        }
    }
    for (const qreal ratio : {1.0, 1.5, 2.0})
        runAtRatio(bench, contest, ratio);
    bench.compare(name + QStringLiteral(": construction"), construction(contest.ours),
                  construction(contest.stock));
    bench.compareValues(qPrintable(name + QStringLiteral(": memory of 100")), "KiB", kilobytes(contest.ours),
                        kilobytes(contest.stock));
}

Contest::Make stock(const char *sheet, const QSize &size)
{
    return [=](QWidget *parent) {
        return stockSlider(parent, QString::fromLatin1(sheet), size);
    };
}

Contest horizontal()
{
    return {"HorizontalSlider",
            [](QWidget *parent) { return new HorizontalSlider(parent); },
            stock(kHorizontalSheet, QSize(206, 14)),
            stock("", QSize(206, 14)),
            {QStringLiteral(":/images/images/hslider/groove.svg"),
             QStringLiteral(":/images/images/hslider/handle.svg")}};
}

Contest newHorizontal()
{
    return {"NewHorizontalSlider",
            [](QWidget *parent) { return new NewHorizontalSlider(kNewSize, kNewHandle, false, parent); },
            stock(kNewSheet, kNewSize),
            stock("", kNewSize),
            {QStringLiteral(":/images/images/hslider2/groove.svg"),
             QStringLiteral(":/images/images/hslider2/handle.svg")}};
}

Contest bar()
{
    const QString skin = QStringLiteral(":/images/images/slider/");
    return {"CustomSliderBarWidget",
            [](QWidget *parent) { return new CustomSliderBarWidget(parent); },
            stock(kBarSheet, QSize(117, 12)),
            stock("", QSize(117, 12)),
            {skin + QStringLiteral("background.svg"), skin + QStringLiteral("item.svg"),
             skin + QStringLiteral("item_active.svg"), skin + QStringLiteral("select.svg")}};
}

Contest clicks()
{
    return {"CustomSlider",
            [](QWidget *parent) {
                auto *slider = new CustomSlider(Qt::Horizontal, parent);
                slider->setStyleSheet(QString::fromLatin1(kNewSheet));
                slider->setFixedSize(kNewSize);
                return slider;
            },
            stock(kNewSheet, kNewSize),
            stock(kNewSheet, kNewSize),
            {}};
}

Contest bidirection()
{
    return {
        "CustomBidirectionSlider",
        [](QWidget *parent) {
            auto *slider =
                new CustomBidirectionSlider(kLineWidth, kHandleWidth, QColor(0x4B, 0x66, 0xEB), parent);
            slider->setFixedSize(206, 24);
            return slider;
        },
        [sheet = bidirectionSheet() + QLatin1String(kLineSheet)](QWidget *parent) {
            return stockSlider(parent, sheet, QSize(206, 24));
        },
        [sheet = bidirectionSheet()](QWidget *parent) { return stockSlider(parent, sheet, QSize(206, 24)); },
        {}};
}

const BenchGroup group("sliders", [](Bench &bench) {
    for (const Contest &contest : {horizontal(), newHorizontal(), bar(), clicks(), bidirection()})
        run(bench, contest);
    bench.note(QStringLiteral(
        "stock Qt is a QSlider in the same looks by style sheet; it has no steps, and its coloured "
        "line starts at the left end; plain is one without a sheet, or without a line, at that device pixel "
        "ratio"));
});

} // namespace
