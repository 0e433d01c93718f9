#include "kinds.h"
#include "logcapture.h"
#include "orvmaskctrl.h"
#include "testmain.h"

#if defined(ORV_POISONED_MEMORY)
#    include "poisonedmemory.h"
#endif

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <algorithm>
#include <iterator>

using namespace Destruction;

namespace {

const char *nameOf(Deed deed)
{
    const char *const names[] = {"object deleted", "parent deleted", "window deleted",
                                 "object deleted later, in a loop"};
    return names[int(deed)];
}

/// What Qt cannot survive, whatever the class, with the reason. The name of a kind or of a step is null where it does
/// not matter; a step with "!" before it stands for all others.
struct Exception
{
    const char *kind;
    const char *what;
    const char *step;
    const char *reason;
};

constexpr char kNativeHide[] = "QWidgetWindow goes on with the widget that its window hides";
constexpr char kGoesOn[] = "Qt's own class goes on with itself after it";

constexpr char kFocus[] = "QWidget::setFocus() goes on with the widget that it gives the focus";
constexpr char kPointer[] = "QApplication goes on with the widgets between which the pointer goes";

constexpr char kHidesItsList[] =
    "QWidget::setVisible() goes on with the combo box that hides, and its list with it";

const Exception kImpossible[] = {
    {nullptr, "destroyed(QObject*)", nullptr, "it is being destroyed already"},
    {nullptr, "Enter", "!enter", kPointer},
    {nullptr, "Leave", "!leave", kPointer},
    {nullptr, "watched Enter", "!panel", kPointer},
    {nullptr, "watched Leave", "!panel", kPointer},
    {"CustomShadowCombox", "watched HideToParent", "hide", kHidesItsList},
    {"CustomShadowCombox", "watched HideToParent", "close", kHidesItsList},
    {nullptr, "HideToParent", "exec() hidden natively", kNativeHide},
    {nullptr, "HideToParent", "execWithPos() hidden natively", kNativeHide},
    {nullptr, "watched Hide", "exec() hidden natively", kNativeHide},
    {nullptr, "watched Hide", "execWithPos() hidden natively", kNativeHide},
    {nullptr, "watched HideToParent", "exec() hidden natively", kNativeHide},
    {nullptr, "watched HideToParent", "execWithPos() hidden natively", kNativeHide},
    {"CustomPictureBtn", "toggled(bool)", nullptr, kGoesOn},
    {"CustomToolButton", "toggled(bool)", nullptr, kGoesOn},
    {"CustomToolButton", "clicked(bool)", "release", kGoesOn},
    {"CustomToolButton", "pressed()", "press", kGoesOn},
    {"CustomToolButton", "pressed()", "double click", kGoesOn},
    {"CustomToolButton", "released()", "release", kGoesOn},
    {"CustomToolButton", "watched Hide", "release", kFocus},
    {"CustomToolButton", "watched HideToParent", "release", kFocus},
    {"CustomToolButton", "watched Paint", nullptr,
     "a button paints at once what is under the pointer, and goes on with itself"},
    {"CustomSlider", "actionTriggered(int)", nullptr, kGoesOn},
    {"CustomSlider", "rangeChanged(int,int)", nullptr, kGoesOn},
    {"CustomSlider", "sliderMoved(int)", nullptr, kGoesOn},
    {"CustomSlider", "sliderPressed()", nullptr, kGoesOn},
    {"CustomSlider", "sliderReleased()", nullptr, kGoesOn},
    {"CustomSlider", "valueChanged(int)", nullptr, kGoesOn},
    {"CustomBidirectionSlider", "actionTriggered(int)", nullptr, kGoesOn},
    {"CustomBidirectionSlider", "rangeChanged(int,int)", nullptr, kGoesOn},
    {"CustomBidirectionSlider", "sliderMoved(int)", nullptr, kGoesOn},
    {"CustomBidirectionSlider", "sliderPressed()", nullptr, kGoesOn},
    {"CustomBidirectionSlider", "sliderReleased()", nullptr, kGoesOn},
    {"CustomBidirectionSlider", "valueChanged(int)", nullptr, kGoesOn},
    {"customcombox", "activated(QString)", nullptr, kGoesOn},
    {"customcombox", "activated(int)", nullptr, kGoesOn},
    {"customcombox", "currentIndexChanged(QString)", nullptr, kGoesOn},
    {"customcombox", "currentIndexChanged(int)", nullptr, kGoesOn},
    {"customcombox", "currentTextChanged(QString)", nullptr, kGoesOn},
    {"customcombox", "editTextChanged(QString)", nullptr, kGoesOn},
    {"customcombox", "highlighted(QString)", nullptr, kGoesOn},
    {"customcombox", "highlighted(int)", nullptr, kGoesOn},
    {"customcombox", "textActivated(QString)", nullptr, kGoesOn},
    {"customcombox", "textHighlighted(QString)", nullptr, kGoesOn},
    {"customcombox", "watched HideToParent", "no line edit", kGoesOn},
    {"customcombox", "watched ShowToParent", "show",
     "QWidget::show() goes on with the children of the widget"},
    {"CustomPlainTextEdit", "blockCountChanged(int)", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "copyAvailable(bool)", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "cursorPositionChanged()", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "modificationChanged(bool)", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "redoAvailable(bool)", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "selectionChanged()", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "textChanged()", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "undoAvailable(bool)", nullptr, kGoesOn},
    {"CustomPlainTextEdit", "updateRequest(QRect,int)", nullptr, kGoesOn},
    {"CustomKeySequenceEdit", "keySequenceChanged(QKeySequence)", "key", kGoesOn},
    {"customWrapTextToolTip", "HideToParent", nullptr, kGoesOn},
    {"customWrapTextToolTip", "ShowToParent", nullptr, kGoesOn},
    {"customWrapTextToolTip", "accepted()", nullptr, kGoesOn},
    {"customWrapTextToolTip", "rejected()", nullptr, kGoesOn},
};

/// What is never told in the lives of these objects, with the reason.
const Exception kUntold[] = {
    {nullptr, "destroyed(QObject*)", nullptr, "it outlives its life here"},
    {"CustomPlainTextEdit", "customContextMenuRequested(QPoint)", nullptr,
     "Qt asks the viewport for its policy"},
};

bool isAmong(const Exception *begin, const Exception *end, const QByteArray &kind, const What &what,
             const QByteArray &step)
{
    const auto isStep = [&step](const QByteArray &pattern) {
        return pattern.startsWith('!') ? step != pattern.mid(1) : step == pattern;
    };
    return std::any_of(begin, end, [&](const Exception &exception) {
        return what == exception.what && (!exception.kind || kind == exception.kind) &&
               (!exception.step || isStep(exception.step));
    });
}

bool isPossible(const QByteArray &kind, const What &what, const QByteArray &step)
{
    return !isAmong(std::begin(kImpossible), std::end(kImpossible), kind, what, step);
}

} // namespace

/// A client may destroy an object of any class in whatever that object tells it: in each of its signals, and in each
/// event that it handles, by way of an event filter; the object, its parent or its window; at once, or in an event
/// loop that the client enters there.
class tst_Destruction : public QObject
{
    Q_OBJECT

public:
    tst_Destruction();

private Q_SLOTS:
    void livesTellEverything_data();
    void livesTellEverything();
    void survives_data();
    void survives();

private:
    QWidget m_mainWindow;
    const QVector<Kind> m_kinds =
        dialogKinds() + buttonKinds() + comboBoxKinds() + sliderKinds() + textKinds() + hotkeyKinds();
};

tst_Destruction::tst_Destruction()
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_mainWindow.setGeometry(500, 300, 250, 200);
    m_mainWindow.show();
    OrvMaskCtrl::getInstance(&m_mainWindow);
}

void tst_Destruction::livesTellEverything_data()
{
    QTest::addColumn<int>("kind");
    for (int kind = 0; kind < m_kinds.size(); ++kind)
        QTest::newRow(m_kinds.at(kind).name) << kind;
}

void tst_Destruction::livesTellEverything()
{
    QFETCH(const int, kind);
    const LogCapture quiet;
    Stage stage(m_kinds.at(kind));
    stage.play();
    QVERIFY(stage.isAlive());
    const QList<What> untold = stage.untold();
    for (const What &what : untold) {
        QVERIFY2(isAmong(std::begin(kUntold), std::end(kUntold), m_kinds.at(kind).name, what, QByteArray()),
                 what);
    }
}

void tst_Destruction::survives_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("what");
    QTest::addColumn<QVector<int>>("steps");
    const LogCapture quiet;
    for (int kind = 0; kind < m_kinds.size(); ++kind) {
        Stage stage(m_kinds.at(kind));
        stage.play();
        const auto told = stage.told();
        for (auto entry = told.begin(); entry != told.end(); ++entry) {
            QVector<int> steps;
            for (const int step : entry.value()) {
                if (isPossible(m_kinds.at(kind).name, entry.key(), m_kinds.at(kind).life.at(step).name))
                    steps << step;
            }
            if (!steps.isEmpty())
                QTest::newRow(m_kinds.at(kind).name + ": " + entry.key()) << kind << entry.key() << steps;
        }
    }
}

void tst_Destruction::survives()
{
    QFETCH(const int, kind);
    QFETCH(const QByteArray, what);
    QFETCH(const QVector<int>, steps);
    const LogCapture quiet;
    int done = 0;
    for (const int step : steps) {
        for (const Deed deed : kDeeds) {
            const QByteArray where = m_kinds.at(kind).life.at(step).name + ", " + nameOf(deed);
            Stage stage(m_kinds.at(kind));
            stage.plan(what, step, deed);
            if (!stage.isPossible()) {
                ++done;
                continue;
            }
            stage.play();
            if (stage.isDone()) // what the window system tells comes when it comes
                ++done;
            QVERIFY2(stage.isAlive() != stage.isDone(), where);
        }
    }
    QVERIFY(done > 0);
#if defined(ORV_POISONED_MEMORY)
    QVERIFY(!PoisonedMemory::wasTouched());
#endif
}

ORV_TEST_MAIN(tst_Destruction)

#include "tst_destruction.moc"
