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

/// What Qt cannot survive, whatever the class, with the reason, as stack traces and a memory checker have it. The name
/// of a kind or of a step is null where it does not matter; a step with "!" before it stands for all others.
struct Exception
{
    const char *kind;
    const char *what;
    const char *step;
    const char *reason;
};

constexpr char kNativeHide[] = "QWidgetWindow goes on with the widget that its window hides";
constexpr char kShow[] = "QWidget::show() goes on with the children of the widget";
constexpr char kHide[] = "QWidget::hide() goes on with the widget, and with its children";
constexpr char kDisable[] = "QWidget::setEnabled() goes on with the children of the widget";
constexpr char kFocus[] = "QWidget::setFocus() and clearFocus() go on with the widget";
constexpr char kPointer[] = "QApplication goes on with the widgets between which the pointer goes";
constexpr char kActivation[] =
    "QApplication::setActiveWindow() goes on with the windows and widgets that it tells";
constexpr char kHover[] =
    "QApplication::notify() goes on with the widget that it tells of a move and of a hover";
constexpr char kChecked[] = "QAbstractButton::setChecked() tells assistive technology of the button after it";
constexpr char kRelease[] = "QToolButton::mouseReleaseEvent() looks at which part of the button was pressed";
constexpr char kAction[] = "QAbstractSlider goes on to set the value";
constexpr char kWheel[] = "QAbstractSlider::wheelEvent() compares the value with the one before";
constexpr char kIndex[] = "QComboBox tells the same in another form, and assistive technology of it";
constexpr char kEdit[] = "QComboBox sets the text of its line edit, which goes on with itself";
constexpr char kCurrent[] = "the list's QItemSelectionModel goes on with itself";
constexpr char kDocument[] = "QPlainTextEdit goes on with its document";
constexpr char kDialog[] = "QDialog goes on with itself when it is done";
constexpr char kFinish[] =
    "QKeySequenceEdit::focusOutEvent() goes on with itself when it has finished the editing";

const Exception kImpossible[] = {
    {nullptr, "destroyed(QObject*)", nullptr, "it is being destroyed already"},
    {nullptr, "Enter", "!enter", kPointer},
    {nullptr, "Leave", "!leave", kPointer},
    {nullptr, "watched Enter", "!panel", kPointer},
    {nullptr, "watched Leave", "!panel", kPointer},
    {nullptr, "FocusIn", "!focus", kFocus},
    {nullptr, "watched FocusIn", nullptr, kFocus},
    {nullptr, "FocusOut", "!no focus", kFocus},
    {nullptr, "watched FocusOut", "!panel without focus", kFocus},
    {nullptr, "WindowActivate", "!activate", kActivation},
    {nullptr, "watched WindowActivate", "!activate", kActivation},
    {nullptr, "WindowDeactivate", "!deactivate", kActivation},
    {nullptr, "watched WindowDeactivate", "!deactivate", kActivation},
    {nullptr, "ActivationChange", "!activation", kActivation},
    {nullptr, "watched ActivationChange", "!activation", kActivation},
    {nullptr, "HoverMove", "!hover", kHover},
    {nullptr, "watched HoverMove", "!hover", kHover},
    {nullptr, "watched EnabledChange", nullptr, kDisable},
    {nullptr, "HideToParent", "exec() hidden natively", kNativeHide},
    {nullptr, "HideToParent", "execWithPos() hidden natively", kNativeHide},
    {nullptr, "watched Hide", "exec() hidden natively", kNativeHide},
    {nullptr, "watched Hide", "execWithPos() hidden natively", kNativeHide},
    {nullptr, "watched HideToParent", "exec() hidden natively", kNativeHide},
    {nullptr, "watched HideToParent", "execWithPos() hidden natively", kNativeHide},
    {"CustomPictureBtn", "toggled(bool)", nullptr, kChecked},
    {"CustomToolButton", "toggled(bool)", nullptr, kChecked},
    {"CustomToolButton", "clicked(bool)", "release", kRelease},
    {"CustomToolButton", "released()", "release", kRelease},
    {"CustomToolButton", "watched HideToParent", "release", kFocus},
    {"CustomToolButton", "watched Paint", nullptr,
     "a button paints at once what is under the pointer, and goes on with itself"},
    {"CustomShadowCombox", "watched HideToParent", "hide", kHide},
    {"CustomShadowCombox", "watched HideToParent", "close", kHide},
    {"CustomSlider", "actionTriggered(int)", nullptr, kAction},
    {"CustomSlider", "rangeChanged(int,int)", nullptr, kAction},
    {"CustomSlider", "sliderMoved(int)", nullptr, kAction},
    {"CustomSlider", "sliderReleased()", nullptr, "QSlider::mouseReleaseEvent() paints the handle"},
    {"CustomSlider", "valueChanged(int)", "press", "QSlider::mousePressEvent() repeats its action"},
    {"CustomSlider", "valueChanged(int)", "wheel", kWheel},
    {"CustomBidirectionSlider", "actionTriggered(int)", nullptr, kAction},
    {"CustomBidirectionSlider", "rangeChanged(int,int)", nullptr, kAction},
    {"CustomBidirectionSlider", "sliderMoved(int)", nullptr, kAction},
    {"CustomBidirectionSlider", "sliderReleased()", nullptr,
     "QSlider::mouseReleaseEvent() paints the handle"},
    {"CustomBidirectionSlider", "valueChanged(int)", "press",
     "QSlider::mousePressEvent() repeats its action"},
    {"CustomBidirectionSlider", "valueChanged(int)", "wheel", kWheel},
    {"customcombox", "activated(QString)", "key in the list", "QApplication::notify() goes on with the list"},
    {"customcombox", "activated(int)", nullptr, kIndex},
    {"customcombox", "currentIndexChanged(QString)", nullptr, kIndex},
    {"customcombox", "currentIndexChanged(int)", nullptr, kIndex},
    {"customcombox", "currentTextChanged(QString)", nullptr, kEdit},
    {"customcombox", "editTextChanged(QString)", nullptr, kEdit},
    {"customcombox", "highlighted(QString)", nullptr, kCurrent},
    {"customcombox", "highlighted(int)", nullptr, kCurrent},
    {"customcombox", "textActivated(QString)", nullptr, kIndex},
    {"customcombox", "textHighlighted(QString)", nullptr, kCurrent},
    {"customcombox", "watched HideToParent", "no line edit", kHide},
    {"customcombox", "watched ShowToParent", "show", kShow},
    {"CustomPlainTextEdit", "blockCountChanged(int)", nullptr, kDocument},
    {"CustomPlainTextEdit", "copyAvailable(bool)", nullptr, kDocument},
    {"CustomPlainTextEdit", "cursorPositionChanged()", nullptr, kDocument},
    {"CustomPlainTextEdit", "modificationChanged(bool)", nullptr, kDocument},
    {"CustomPlainTextEdit", "redoAvailable(bool)", nullptr, kDocument},
    {"CustomPlainTextEdit", "selectionChanged()", nullptr, kDocument},
    {"CustomPlainTextEdit", "textChanged()", nullptr, kDocument},
    {"CustomPlainTextEdit", "undoAvailable(bool)", nullptr, kDocument},
    {"CustomPlainTextEdit", "updateRequest(QRect,int)", nullptr,
     "QPlainTextEdit tells it in the middle of its events"},
    {"CustomKeySequenceEdit", "keySequenceChanged(QKeySequence)", "key",
     "QKeySequenceEdit::keyPressEvent() sets the placeholder of its line edit"},
    {"customWrapTextToolTip", "HideToParent", nullptr, kDialog},
    {"customWrapTextToolTip", "ShowToParent", nullptr, "QDialog::setVisible() shows its extension"},
    {"customWrapTextToolTip", "accepted()", nullptr, kDialog},
    {"customWrapTextToolTip", "rejected()", nullptr, kDialog},
};

/// The same of Qt 6 alone.
const Exception kImpossibleInQt6[] = {
    {nullptr, "HoverEnter", "!hover", kPointer},
    {nullptr, "watched HoverEnter", "!hover", kPointer},
    {"CustomKeySequenceEdit", "editingFinished()", "no focus", kFinish},
    {"CustomKeySequenceEdit", "editingFinished()", "disable", kFinish},
    {"CustomKeySequenceEdit", "editingFinished()", "hide", kFinish},
    {"CustomKeySequenceEdit", "editingFinished()", "close", kFinish},
    {"CustomKeySequenceEdit", "keySequenceChanged(QKeySequence)", "no focus", kFinish},
    {"CustomKeySequenceEdit", "keySequenceChanged(QKeySequence)", "disable", kFinish},
    {"CustomKeySequenceEdit", "keySequenceChanged(QKeySequence)", "hide", kFinish},
    {"CustomKeySequenceEdit", "keySequenceChanged(QKeySequence)", "close", kFinish},
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
    const bool impossible = isAmong(std::begin(kImpossible), std::end(kImpossible), kind, what, step);
    return !impossible && (QT_VERSION_MAJOR < 6 || !isAmong(std::begin(kImpossibleInQt6),
                                                            std::end(kImpossibleInQt6), kind, what, step));
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
