#include "bench.h"
#include "customshadowcombox.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLayout>
#include <QtWidgets/QListView>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int kRows = 1000;
constexpr int kFewRows = 10; // what a list shows without scrolling
constexpr int kMoves = 2000;
constexpr int kRounds = 9;
constexpr int kManyRounds = 45;
constexpr int kPointings = 500;
constexpr QSize kSize(260, 48);

// The look of our list, by style sheet.
QString stockStyle()
{
    return QStringLiteral("QComboBox{background:#FFFFFF;border:none;color:#1F1F22;font-size:16px;}"
                          "QListView{background:#FFFFFF;border:none;border-radius:4px;outline:none;"
                          "color:#333333;font-size:16px;}"
                          "QListView::item{height:48px;border-radius:8px;background-color:#FFFFFF;}"
                          "QListView::item:hover{background-color:#F4F4F4;color:#333333;}"
                          "QListView::item:selected{color:#4B66EB;background-color:#FFFFFF;}");
}

class OurCombo : public CustomShadowCombox
{
public:
    OurCombo()
        : CustomShadowCombox(nullptr)
    {
        resize(kSize);
    }
    void fill(int rows)
    {
        for (int row = 0; row < rows; ++row)
            addItem(QStringLiteral("Camera %1").arg(row), 16);
    }
    // With the log lines of the plainest rows.
    void fillLogging(int rows)
    {
        for (int row = 0; row < rows; ++row)
            addItem(QStringLiteral("Camera %1").arg(row));
    }
    void openList() { showPopup(); }
    void closeList() { hidePopup(); }
    QWidget *row(int index) const
    {
        return findChild<QScrollArea *>()->widget()->layout()->itemAt(index)->widget();
    }
    // Where the list's window has a row.
    QPoint place(int index) const { return row(index)->mapTo(row(index)->window(), QPoint(30, 10)); }
    QWindow *listWindow() const { return row(0)->window()->windowHandle(); }
};

class StockCombo : public QComboBox
{
public:
    StockCombo()
    {
        auto *view = new QListView(this);
        setView(view);
        setItemDelegate(new QStyledItemDelegate(this));
        setStyleSheet(stockStyle());
        setMaxVisibleItems(10);
        resize(kSize);
    }
    void fill(int rows)
    {
        for (int row = 0; row < rows; ++row)
            addItem(QStringLiteral("Camera %1").arg(row));
    }
    void fillLogging(int rows) { fill(rows); }
    void openList() { showPopup(); }
    void closeList() { hidePopup(); }
    QPoint place(int index) const
    {
        const QPoint center = view()->visualRect(model()->index(index, 0)).center();
        return view()->viewport()->mapTo(view()->window(), center);
    }
    QWindow *listWindow() const { return view()->window()->windowHandle(); }
};

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Nanoseconds of one mouse move that a window hands to a widget, beside so many combo boxes.
template<typename Combo>
double mouseMove(int combos)
{
    std::vector<std::unique_ptr<Combo>> boxes;
    for (int box = 0; box < combos; ++box) {
        boxes.push_back(std::make_unique<Combo>());
        boxes.back()->fill(3);
    }
    QWidget window;
    window.setMouseTracking(true);
    window.resize(200, 200);
    window.show();
    settle();
    std::vector<double> rounds;
    for (int round = 0; round < kRounds; ++round) {
        const double start = Bench::processorNanoseconds();
        for (int move = 0; move < kMoves; ++move) {
            const QPointF pos(move % 150, 20);
            QMouseEvent event(QEvent::MouseMove, pos, pos, pos, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(window.windowHandle(), &event);
        }
        rounds.push_back((Bench::processorNanoseconds() - start) / kMoves);
    }
    return median(rounds);
}

template<typename Combo>
double fillTime()
{
    std::vector<double> rounds;
    for (int round = 0; round < kRounds; ++round) {
        Combo combo;
        const double start = Bench::processorNanoseconds();
        combo.fill(kRows);
        rounds.push_back((Bench::processorNanoseconds() - start) / 1e6);
    }
    return median(rounds);
}

// Microseconds for each row of a list that needs no scrolling.
template<typename Combo>
double fewRowsTime(bool logging)
{
    std::vector<double> rounds;
    for (int round = 0; round < kManyRounds; ++round) {
        Combo combo;
        const double start = Bench::processorNanoseconds();
        if (logging)
            combo.fillLogging(kFewRows);
        else
            combo.fill(kFewRows);
        rounds.push_back((Bench::processorNanoseconds() - start) / 1e3 / kFewRows);
    }
    return median(rounds);
}

// From a combo box that is shown to a list that is open and painted, with the filling or without.
template<typename Combo>
double firstOpenTime(bool withFilling)
{
    std::vector<double> rounds;
    for (int round = 0; round < kManyRounds; ++round) {
        Combo combo;
        combo.show();
        settle();
        double start = Bench::processorNanoseconds();
        combo.fill(kFewRows);
        if (!withFilling) {
            settle();
            start = Bench::processorNanoseconds();
        }
        combo.openList();
        settle();
        rounds.push_back((Bench::processorNanoseconds() - start) / 1e6);
        combo.closeList();
        settle();
    }
    return median(rounds);
}

// From a closed list that is ready to one that is painted; the first time with the showing of the combo box
// itself, in which either one prepares a part of its list.
template<typename Combo>
double openTime(bool first, int rowCount)
{
    std::vector<double> rounds;
    for (int round = 0; round < kRounds; ++round) {
        Combo combo;
        combo.fill(rowCount);
        if (!first) {
            combo.show();
            settle();
            combo.openList();
            settle();
            combo.closeList();
            settle();
        }
        const double start = Bench::processorNanoseconds();
        combo.show();
        settle();
        combo.openList();
        settle();
        rounds.push_back((Bench::processorNanoseconds() - start) / 1e6);
        combo.closeList();
        settle();
    }
    return median(rounds);
}

template<typename Combo>
double heapOfRows()
{
    Combo combo;
    const double before = Bench::heapBytes();
    combo.fill(kRows);
    return (Bench::heapBytes() - before) / 1024.0;
}

template<typename Combo>
Bench::Work nextRow(Combo &combo, bool paint)
{
    return [&combo, paint, row = 0]() mutable {
        row = (row + 1) % 5;
        combo.setCurrentIndex(row);
        if (paint)
            settle();
    };
}

// Microseconds until a pointer that goes from one row of an open list to the next is answered on the screen. Qt's list
// makes that row its current one besides, and takes the events of all windows while it is open: each has its own turn.
template<typename Combo>
double pointingTime(int rowCount)
{
    Combo combo;
    combo.fill(rowCount);
    combo.show();
    settle();
    combo.openList();
    settle();
    QVector<QPoint> places;
    for (int row = 0; row < 5; ++row)
        places.append(combo.place(row));
    QWindow *const window = combo.listWindow();
    std::vector<double> rounds;
    for (int round = 0; round < kPointings; ++round) {
        const QPoint &place = places.at(round % 5);
        QMouseEvent move(QEvent::MouseMove, place, place, window->mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        const double start = Bench::processorNanoseconds();
        QCoreApplication::sendEvent(window, &move);
        settle();
        rounds.push_back((Bench::processorNanoseconds() - start) / 1e3);
    }
    combo.closeList();
    settle();
    return median(rounds);
}

void measureFilter(Bench &bench)
{
    for (const int combos : {0, 1, 50, 200}) {
        bench.compareValues(
            qPrintable(QStringLiteral("mouse move beside %1 combo boxes / QComboBox").arg(combos)), "ns",
            [combos] { return mouseMove<OurCombo>(combos); },
            [combos] { return mouseMove<StockCombo>(combos); });
    }
    bench.note(QStringLiteral("one move is two events: one for the window, one for the widget"));
}

void measureLists(Bench &bench)
{
    bench.compareValues(
        "filling 10 rows, each", "us", [] { return fewRowsTime<OurCombo>(false); },
        [] { return fewRowsTime<StockCombo>(false); });
    bench.compareValues(
        "filling 10 rows, each with its log lines", "us", [] { return fewRowsTime<OurCombo>(true); },
        [] { return fewRowsTime<StockCombo>(true); });
    bench.compareValues(
        "first opening, 10 rows, until painted", "ms", [] { return firstOpenTime<OurCombo>(false); },
        [] { return firstOpenTime<StockCombo>(false); });
    bench.compareValues(
        "filling and first opening, 10 rows, until painted", "ms",
        [] { return firstOpenTime<OurCombo>(true); }, [] { return firstOpenTime<StockCombo>(true); });
    bench.compareValues("filling 1 000 rows", "ms", fillTime<OurCombo>, fillTime<StockCombo>);
    bench.compareValues("heap of 1 000 rows", "KiB", heapOfRows<OurCombo>, heapOfRows<StockCombo>);
    for (const int rows : {kFewRows, 100, kRows}) {
        bench.compareValues(
            qPrintable(QStringLiteral("first showing and opening, %1 rows, until painted").arg(rows)), "ms",
            [rows] { return openTime<OurCombo>(true, rows); },
            [rows] { return openTime<StockCombo>(true, rows); });
        bench.compareValues(
            qPrintable(QStringLiteral("opening again, %1 rows, until painted").arg(rows)), "ms",
            [rows] { return openTime<OurCombo>(false, rows); },
            [rows] { return openTime<StockCombo>(false, rows); });
    }
}

template<typename Combo>
void openOnce(Combo &combo)
{
    combo.openList();
    settle();
    combo.closeList();
    settle();
}

void measureCurrentRow(Bench &bench, int rows)
{
    OurCombo ours;
    StockCombo stock;
    ours.fill(rows);
    stock.fill(rows);
    ours.show();
    stock.show();
    settle();
    const auto compare = [&bench, rows](const char *what, const Bench::Work &work, const Bench::Work &other) {
        bench.compare(QStringLiteral("%1 rows: %2").arg(rows).arg(QString::fromUtf8(what)), work, other);
    };
    compare("changing the current row, never opened", nextRow(ours, false), nextRow(stock, false));
    openOnce(ours);
    openOnce(stock);
    compare("changing the current row, opened before", nextRow(ours, false), nextRow(stock, false));
    compare("the same, painted", nextRow(ours, true), nextRow(stock, true));
}

const BenchGroup group("combobox", [](Bench &bench) {
    measureFilter(bench);
    measureLists(bench);
    for (const int rows : {kFewRows, kRows}) {
        measureCurrentRow(bench, rows);
        bench.compareValues(
            qPrintable(QStringLiteral("%1 rows: pointing at another row, painted").arg(rows)), "us",
            [rows] { return pointingTime<OurCombo>(rows); },
            [rows] { return pointingTime<StockCombo>(rows); });
    }
    bench.note(QStringLiteral("ours writes two log lines for each change, which here go nowhere"));
});

} // namespace
