#include "commonpopupdialog.h"
#include "insideloop.h"
#include "logcapture.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <memory>

namespace {

constexpr QSize kSize(400, 300);

/// Opens what is meant for subclasses.
class OpenDialog : public CommonPopupDialog
{
public:
    using CommonPopupDialog::CommonPopupDialog;
    using CommonPopupDialog::hideTitleLine;
    using CommonPopupDialog::setExecResult;
};

std::unique_ptr<OpenDialog> makeDialog(QWidget *parent = nullptr, bool modal = false)
{
    return std::make_unique<OpenDialog>(parent, QStringLiteral("Camera"), kSize, true, true, true, modal,
                                        true);
}

QWidget *bodyOf(const CommonPopupDialog &dialog)
{
    return dialog.findChild<QWidget *>(QStringLiteral("CommonPopupDialog"));
}

QPushButton *closeButtonOf(const CommonPopupDialog &dialog)
{
    return dialog.findChild<QPushButton *>(QStringLiteral("PopupDialogCloseButton"));
}

QLabel *titleOf(const CommonPopupDialog &dialog)
{
    return dialog.findChild<QLabel *>(QStringLiteral("Font16LightLbl"));
}

QWidget *titleLineOf(const CommonPopupDialog &dialog)
{
    return dialog.findChild<QWidget *>(QStringLiteral("TitleBottomHLine"));
}
} // namespace

Q_DECLARE_METATYPE(std::function<void(CommonPopupDialog *)>)
Q_DECLARE_METATYPE(std::function<void(OpenDialog *)>)

class tst_CommonPopupDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buildsItsWindow();
    void buildsItsBody();
    void laysOutTheTitleRow();
    void hidesTheCloseButton();
    void appliesItsFlags_data();
    void appliesItsFlags();
    void changesModality();
    void setsTheTitle();
    void hidesTheTitleLine();
    void followsItsSize();
    void showDoesNotBlock();

    void closeButtonEndsExec();
    void closedSignalComesBetweenLoopAndClose();
    void ignoredCloseStillEndsExec();
    void closeButtonWithoutExec();
    void hidingEndsExec_data();
    void hidingEndsExec();
    void exitEventLoopLeavesTheDialogVisible();
    void exitEventLoopWithoutExec();
    void showingDoesNotEndExec();
    void resultIsNotReset();
    void subclassSetsTheResult();
    void logsItsLoop();
    void runsOneLoopInAnother();
    void innermostRunIsEnded();

    void destroyedInItsLoop_data();
    void destroyedInItsLoop();
    void hiddenWhileBeingShown();
    void secondDialogFromASlot();
    void applicationQuits();
    void acceptsAbsurdSizes_data();
    void acceptsAbsurdSizes();
};

void tst_CommonPopupDialog::buildsItsWindow()
{
    QWidget parent;
    CommonPopupDialog dialog(&parent, QStringLiteral("Camera"), kSize, true, true, false, true, true);
    QCOMPARE(dialog.parentWidget(), &parent);
    QVERIFY(dialog.isWindow());
    QVERIFY(!dialog.isVisible());
    QVERIFY(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(dialog.windowType(), Qt::Dialog);
    QCOMPARE(dialog.minimumSize(), kSize);
    QCOMPARE(dialog.maximumSize(), kSize);
    QCOMPARE(dialog.size(), kSize);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("CommonPopupDialog"));
    QCOMPARE(dialog.objectName(), QString());
    QCOMPARE(dialog.styleSheet(), QString());
    QVERIFY(!dialog.testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(int(CommonPopupDialog::NoResult), -1);
    QCOMPARE(int(CommonPopupDialog::Confirmed), 0);
    QCOMPARE(int(CommonPopupDialog::Closed), 2);
    QCOMPARE(sizeof(CommonPopupDialog::ExecResult), size_t(4));
}

void tst_CommonPopupDialog::buildsItsBody()
{
    const auto dialog = makeDialog();
    QWidget *body = bodyOf(*dialog);
    QVERIFY(body);
    QCOMPARE(body->parentWidget(), dialog.get());
    QCOMPARE(body->geometry(), QRect(QPoint(0, 0), kSize));
    QCOMPARE(body->minimumSize(), kSize);
    QCOMPARE(body->maximumSize(), kSize);

    const auto *layout = qobject_cast<QVBoxLayout *>(body->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->alignment(), Qt::AlignTop);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->spacerItem()->sizeHint(), QSize(0, 5));
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(1)->layout()));
    QCOMPARE(layout->itemAt(2)->widget(), titleLineOf(*dialog));
    QCOMPARE(layout->itemAt(2)->alignment(), Qt::Alignment());

    QCOMPARE(titleLineOf(*dialog)->minimumSize(), QSize(400, 1));
    QCOMPARE(titleLineOf(*dialog)->maximumSize(), QSize(400, 1));
    const QObjectList children = body->children();
    QVERIFY(children.indexOf(titleOf(*dialog)) < children.indexOf(body->layout()));
    QVERIFY(children.indexOf(body->layout()) < children.indexOf(closeButtonOf(*dialog)));
    QVERIFY(children.indexOf(closeButtonOf(*dialog)) < children.indexOf(titleLineOf(*dialog)));
    QCOMPARE(children.size(), 4);
}

void tst_CommonPopupDialog::laysOutTheTitleRow()
{
    const auto dialog = makeDialog();
    const auto *row = qobject_cast<QHBoxLayout *>(bodyOf(*dialog)->layout()->itemAt(1)->layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins(5, 5, 5, 5));
    QCOMPARE(row->count(), 5);
    QCOMPARE(row->itemAt(0)->spacerItem()->sizeHint(), QSize(20, 0));
    QCOMPARE(row->itemAt(1)->widget(), titleOf(*dialog));
    QVERIFY(row->itemAt(2)->spacerItem()->expandingDirections().testFlag(Qt::Horizontal));
    QCOMPARE(row->stretch(2), 0);
    QCOMPARE(row->itemAt(3)->widget(), closeButtonOf(*dialog));
    QCOMPARE(row->itemAt(4)->spacerItem()->sizeHint(), QSize(12, 0));
    QCOMPARE(row->itemAt(1)->alignment(), Qt::Alignment());
    QCOMPARE(row->itemAt(3)->alignment(), Qt::Alignment());

    const QLabel *title = titleOf(*dialog);
    QCOMPARE(title->text(), QStringLiteral("Camera"));
    QCOMPARE(title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(title->minimumSize(), QSize(382, 22));
    QCOMPARE(title->maximumSize(), QSize(382, 22));
    QCOMPARE(closeButtonOf(*dialog)->minimumSize(), QSize(18, 18));
    QCOMPARE(closeButtonOf(*dialog)->maximumSize(), QSize(18, 18));
    QCOMPARE(title->styleSheet() + closeButtonOf(*dialog)->styleSheet() + titleLineOf(*dialog)->styleSheet(),
             QString());
}

void tst_CommonPopupDialog::hidesTheCloseButton()
{
    CommonPopupDialog without(nullptr, QString(), kSize, false, true, true, false, true);
    without.show();
    QVERIFY(closeButtonOf(without));
    QVERIFY(closeButtonOf(without)->isHidden());
    const QLayout *row = bodyOf(without)->layout()->itemAt(1)->layout();
    QVERIFY(row->itemAt(3)->isEmpty());

    const auto with = makeDialog();
    with->show();
    QVERIFY(closeButtonOf(*with)->isVisible());
}

void tst_CommonPopupDialog::appliesItsFlags_data()
{
    QTest::addColumn<bool>("transparentBody");
    QTest::addColumn<bool>("modal");
    QTest::addColumn<bool>("translucent");
    QTest::newRow("none") << false << false << false;
    QTest::newRow("transparent body") << true << false << false;
    QTest::newRow("modal") << false << true << false;
    QTest::newRow("translucent") << false << false << true;
}

void tst_CommonPopupDialog::appliesItsFlags()
{
    QFETCH(const bool, transparentBody);
    QFETCH(const bool, modal);
    QFETCH(const bool, translucent);
    const CommonPopupDialog dialog(nullptr, QString(), kSize, true, true, transparentBody, modal,
                                   translucent);
    QCOMPARE(bodyOf(dialog)->styleSheet(),
             transparentBody ? QStringLiteral("background-color:transparent") : QString());
    QCOMPARE(dialog.windowModality(), modal ? Qt::ApplicationModal : Qt::NonModal);
    QCOMPARE(dialog.testAttribute(Qt::WA_TranslucentBackground), translucent);
}

void tst_CommonPopupDialog::changesModality()
{
    const auto dialog = makeDialog(nullptr, true);
    QCOMPARE(dialog->windowModality(), Qt::ApplicationModal);
    dialog->setModal(false);
    QCOMPARE(dialog->windowModality(), Qt::NonModal);
    dialog->setModal(true);
    QCOMPARE(dialog->windowModality(), Qt::ApplicationModal);
    InsideLoop::run([&] {
        QCOMPARE(QApplication::activeModalWidget(), dialog.get());
        dialog->exitEventLoop();
    });
    dialog->exec();

    dialog->hide();
    dialog->show();
    QCOMPARE(QApplication::activeModalWidget(), dialog.get());
    dialog->hide();
    dialog->setModal(false);
    dialog->show();
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_CommonPopupDialog::setsTheTitle()
{
    const auto dialog = makeDialog();
    dialog->setTitle(QStringLiteral("Microphone"));
    QCOMPARE(titleOf(*dialog)->text(), QStringLiteral("Microphone"));
    dialog->setTitle(QString());
    QCOMPARE(titleOf(*dialog)->text(), QString());
    QCOMPARE(dialog->windowTitle(), QStringLiteral("CommonPopupDialog"));
}

void tst_CommonPopupDialog::hidesTheTitleLine()
{
    const auto dialog = makeDialog();
    dialog->show();
    QVERIFY(titleLineOf(*dialog)->isVisible());
    dialog->hideTitleLine();
    QVERIFY(titleLineOf(*dialog)->isHidden());
}

void tst_CommonPopupDialog::followsItsSize()
{
    const auto dialog = makeDialog();
    dialog->show();
    dialog->setFixedSize(500, 320);
    QCOMPARE(dialog->size(), QSize(500, 320));
    QCOMPARE(bodyOf(*dialog)->size(), QSize(500, 320));
    QCOMPARE(titleOf(*dialog)->size(), QSize(482, 22));
    QCOMPARE(titleLineOf(*dialog)->size(), QSize(500, 1));

    // Resized within free bounds, the dialog takes the new size as its fixed one.
    dialog->setMinimumSize(0, 0);
    dialog->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    dialog->resize(360, 200);
    QCOMPARE(dialog->minimumSize(), QSize(360, 200));
    QCOMPARE(dialog->maximumSize(), QSize(360, 200));
    QCOMPARE(bodyOf(*dialog)->minimumSize(), QSize(360, 200));
    QCOMPARE(titleOf(*dialog)->maximumSize(), QSize(342, 22));
    QCOMPARE(titleLineOf(*dialog)->maximumSize(), QSize(360, 1));
}

void tst_CommonPopupDialog::showDoesNotBlock()
{
    const auto dialog = makeDialog();
    const LogCapture log;
    dialog->show();
    QVERIFY(dialog->isVisible());
    QVERIFY(dialog->close());
    QVERIFY(!dialog->isVisible());
    QCOMPARE(log.texts(), QStringList());
}

void tst_CommonPopupDialog::closeButtonEndsExec()
{
    const auto dialog = makeDialog();
    QSignalSpy closed(dialog.get(), &CommonPopupDialog::sigClosed);
    InsideLoop::run([&] {
        QVERIFY(dialog->isVisible());
        InsideLoop::click(closeButtonOf(*dialog));
    });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
    QCOMPARE(closed.count(), 1);
    QVERIFY(!dialog->isVisible());
}

void tst_CommonPopupDialog::closedSignalComesBetweenLoopAndClose()
{
    const auto dialog = makeDialog();
    bool sawVisible = false;
    int closes = 0;
    InsideLoop::EventHook hook(dialog.get(), QEvent::Close, [&](QEvent *) {
        ++closes;
        return false;
    });
    connect(dialog.get(), &CommonPopupDialog::sigClosed, this, [&] {
        sawVisible = dialog->isVisible();
        QCOMPARE(closes, 0);
        // The result is there already: a run that this slot starts and ends returns it.
        InsideLoop::run([&] { dialog->exitEventLoop(); });
        QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
    });
    InsideLoop::run([&] { InsideLoop::click(closeButtonOf(*dialog)); });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
    QVERIFY(sawVisible);
    QCOMPARE(closes, 1);
}

void tst_CommonPopupDialog::ignoredCloseStillEndsExec()
{
    const auto dialog = makeDialog();
    InsideLoop::EventHook hook(dialog.get(), QEvent::Close, [](QEvent *event) {
        event->ignore();
        return true;
    });
    InsideLoop::run([&] { InsideLoop::click(closeButtonOf(*dialog)); });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
    QVERIFY(dialog->isVisible());
}

void tst_CommonPopupDialog::closeButtonWithoutExec()
{
    const auto dialog = makeDialog();
    QSignalSpy closed(dialog.get(), &CommonPopupDialog::sigClosed);
    dialog->show();
    InsideLoop::click(closeButtonOf(*dialog));
    QCOMPARE(closed.count(), 1);
    QVERIFY(!dialog->isVisible());
}

void tst_CommonPopupDialog::hidingEndsExec_data()
{
    QTest::addColumn<std::function<void(CommonPopupDialog *)>>("hide");
    using Hide = std::function<void(CommonPopupDialog *)>;
    QTest::newRow("hide()") << Hide([](CommonPopupDialog *dialog) { dialog->hide(); });
    QTest::newRow("setVisible()") << Hide([](QWidget *dialog) { dialog->setVisible(false); });
    QTest::newRow("setVisible(), of which it does not hear") << Hide([](QWidget *dialog) {
        const InsideLoop::EventHook hook(dialog, QEvent::HideToParent, [](QEvent *) { return true; });
        dialog->setVisible(false);
    });
    QTest::newRow("close()") << Hide([](CommonPopupDialog *dialog) { dialog->close(); });
    QTest::newRow("native hide") << Hide([](QWidget *dialog) { dialog->windowHandle()->hide(); });
    QTest::newRow("hidden natively while it is shown") << Hide([](QWidget *dialog) {
        dialog->hide();
        InsideLoop::EventHook hook(dialog, QEvent::ShowToParent, [dialog](QEvent *) {
            dialog->windowHandle()->hide();
            return false;
        });
        auto *popup = static_cast<CommonPopupDialog *>(dialog);
        QCOMPARE(popup->exec(), CommonPopupDialog::NoResult);
    });
    QTest::newRow("new window flags")
        << Hide([](CommonPopupDialog *dialog) { dialog->setWindowFlags(Qt::Tool); });
}

void tst_CommonPopupDialog::hidingEndsExec()
{
    QFETCH(const std::function<void(CommonPopupDialog *)>, hide);
    const auto dialog = makeDialog();
    QSignalSpy closed(dialog.get(), &CommonPopupDialog::sigClosed);
    InsideLoop::run([&] { hide(dialog.get()); });
    QCOMPARE(dialog->exec(), CommonPopupDialog::NoResult);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(closed.count(), 0);
}

void tst_CommonPopupDialog::exitEventLoopLeavesTheDialogVisible()
{
    const auto dialog = makeDialog();
    InsideLoop::run([&] { dialog->exitEventLoop(); });
    QCOMPARE(dialog->exec(), CommonPopupDialog::NoResult);
    QVERIFY(dialog->isVisible());
}

void tst_CommonPopupDialog::exitEventLoopWithoutExec()
{
    const auto dialog = makeDialog();
    dialog->exitEventLoop();
    dialog->hide();
    dialog->show();
    dialog->exitEventLoop();
    QVERIFY(dialog->isVisible());
    // Nothing of that reaches a later run.
    int steps = 0;
    InsideLoop::run([&] {
        ++steps;
        InsideLoop::run([&] {
            ++steps;
            dialog->exitEventLoop();
            dialog->exitEventLoop();
        });
    });
    dialog->exec();
    QCOMPARE(steps, 2);
}

void tst_CommonPopupDialog::showingDoesNotEndExec()
{
    const auto dialog = makeDialog();
    bool ended = false;
    InsideLoop::run([&] {
        static_cast<QWidget *>(dialog.get())->setVisible(true);
        dialog->show();
        InsideLoop::run([&] {
            ended = true;
            dialog->hide();
        });
    });
    dialog->exec();
    QVERIFY(ended);
}

void tst_CommonPopupDialog::resultIsNotReset()
{
    const auto dialog = makeDialog();
    InsideLoop::run([&] { InsideLoop::click(closeButtonOf(*dialog)); });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
    InsideLoop::run([&] { dialog->hide(); });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
}

void tst_CommonPopupDialog::subclassSetsTheResult()
{
    const auto dialog = makeDialog();
    InsideLoop::run([&] {
        dialog->setExecResult(CommonPopupDialog::Confirmed);
        dialog->hide();
    });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Confirmed);
}

void tst_CommonPopupDialog::logsItsLoop()
{
    const auto dialog = makeDialog();
    const LogCapture log;
    int linesInside = -1;
    InsideLoop::run([&] {
        linesInside = log.count();
        dialog->hide();
    });
    dialog->exec();
    QCOMPARE(linesInside, 1);
    QCOMPARE(log.count(), 2);
    const QStringList beginnings{QStringLiteral("begin"), QStringLiteral("end")};
    for (int i = 0; i < 2; ++i) {
        const LogLine line = log.lines().at(i);
        QCOMPARE(line.type, QtInfoMsg);
        QVERIFY(line.file.endsWith(QLatin1String("widgets/commonpopupdialog.cpp")));
        QVERIFY2(line.function.contains(QLatin1String("CommonPopupDialog::exec()")),
                 qPrintable(line.function));
        QCOMPARE(line.text, QStringLiteral("%1 loop func: CommonPopupDialog::exec ;line: %2")
                                .arg(beginnings.at(i))
                                .arg(line.line));
    }
}

void tst_CommonPopupDialog::runsOneLoopInAnother()
{
    const auto first = makeDialog();
    const auto second = makeDialog();
    QStringList order;
    InsideLoop::run([&] {
        InsideLoop::run([&] {
            // The outer run is told first, but has to wait for the inner one.
            first->hide();
            order << QStringLiteral("outer told");
            InsideLoop::run([&] { InsideLoop::click(closeButtonOf(*second)); });
        });
        QCOMPARE(second->exec(), CommonPopupDialog::Closed);
        order << QStringLiteral("inner ended");
    });
    QCOMPARE(first->exec(), CommonPopupDialog::NoResult);
    order << QStringLiteral("outer ended");
    QCOMPARE(order, QStringList({QStringLiteral("outer told"), QStringLiteral("inner ended"),
                                 QStringLiteral("outer ended")}));
}

void tst_CommonPopupDialog::innermostRunIsEnded()
{
    auto dialog = makeDialog();
    bool innerEnded = false;
    bool outerStillRuns = false;
    InsideLoop::run([&] {
        InsideLoop::run([&] { dialog->hide(); });
        QCOMPARE(dialog->exec(), CommonPopupDialog::NoResult);
        innerEnded = true;
        InsideLoop::run([&] {
            // No loop is recorded any more: only the end of the dialog ends the outer run.
            dialog->show();
            dialog->hide();
            dialog->exitEventLoop();
            dialog->setExecResult(CommonPopupDialog::Closed);
            InsideLoop::run([&] {
                outerStillRuns = true;
                dialog.reset();
            });
        });
    });
    QCOMPARE(dialog->exec(), CommonPopupDialog::Closed);
    QVERIFY(innerEnded);
    QVERIFY(outerStillRuns);
}

void tst_CommonPopupDialog::destroyedInItsLoop_data()
{
    using Destroy = std::function<void(OpenDialog *)>;
    QTest::addColumn<Destroy>("destroy");
    QTest::addColumn<int>("result");
    QTest::newRow("deleted") << Destroy([](OpenDialog *dialog) { delete dialog; }) << -1;
    QTest::newRow("deleted later") << Destroy([](OpenDialog *dialog) { dialog->deleteLater(); }) << -1;
    QTest::newRow("parent deleted") << Destroy([](OpenDialog *dialog) { delete dialog->parentWidget(); })
                                    << -1;
    QTest::newRow("parent deleted later")
        << Destroy([](OpenDialog *dialog) { dialog->parentWidget()->deleteLater(); }) << -1;
    QTest::newRow("result set, deleted") << Destroy([](OpenDialog *dialog) {
        dialog->setExecResult(CommonPopupDialog::Confirmed);
        delete dialog;
    }) << 0;
    QTest::newRow("closed, deletes itself") << Destroy([](OpenDialog *dialog) {
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        InsideLoop::click(closeButtonOf(*dialog));
    }) << 2;
    QTest::newRow("deleted by the close button") << Destroy([](OpenDialog *dialog) {
        connect(dialog, &CommonPopupDialog::sigClosed, dialog, [dialog] { delete dialog; });
        InsideLoop::click(closeButtonOf(*dialog));
    }) << 2;
    QTest::newRow("deleted while it closes") << Destroy([](OpenDialog *dialog) {
        auto *hook = new InsideLoop::EventHook(dialog, QEvent::Close, [dialog](QEvent *) {
            delete dialog;
            return true;
        });
        hook->setParent(qApp);
        InsideLoop::click(closeButtonOf(*dialog));
    }) << 2;
    QTest::newRow("deleted in the run of another") << Destroy([](OpenDialog *dialog) {
        const auto other = makeDialog();
        InsideLoop::run([&other, dialog] {
            delete dialog;
            InsideLoop::run([&other] { other->hide(); });
        });
        other->exec();
    }) << -1;
}

void tst_CommonPopupDialog::destroyedInItsLoop()
{
    QFETCH(const std::function<void(OpenDialog *)>, destroy);
    QFETCH(const int, result);
    const QPointer<QWidget> parent = new QWidget;
    const QPointer<OpenDialog> dialog = makeDialog(parent).release();
    InsideLoop::run([&] { destroy(dialog); });
    QCOMPARE(int(dialog->exec()), result);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
    delete parent;
}

void tst_CommonPopupDialog::hiddenWhileBeingShown()
{
    const auto dialog = makeDialog();
    InsideLoop::EventHook hook(dialog.get(), QEvent::Show, [&](QEvent *) {
        dialog->hide();
        return false;
    });
    QCOMPARE(dialog->exec(), CommonPopupDialog::NoResult);
    QVERIFY(!dialog->isVisible());
}

void tst_CommonPopupDialog::secondDialogFromASlot()
{
    const auto first = makeDialog(nullptr, true);
    const auto second = makeDialog(first.get(), true);
    connect(first.get(), &CommonPopupDialog::sigClosed, this, [&] {
        InsideLoop::run([&] { InsideLoop::click(closeButtonOf(*second)); });
        QCOMPARE(second->exec(), CommonPopupDialog::Closed);
        QVERIFY(first->isVisible());
    });
    InsideLoop::run([&] { InsideLoop::click(closeButtonOf(*first)); });
    QCOMPARE(first->exec(), CommonPopupDialog::Closed);
    QVERIFY(!first->isVisible());
}

void tst_CommonPopupDialog::applicationQuits()
{
    const auto dialog = makeDialog();
    bool returned = false;
    InsideLoop::run([&] {
        InsideLoop::run([] { QCoreApplication::exit(); });
        QCOMPARE(dialog->exec(), CommonPopupDialog::NoResult);
        // While the application is quitting nothing blocks any more.
        QCOMPARE(dialog->exec(), CommonPopupDialog::NoResult);
        returned = true;
    });
    QCoreApplication::exec();
    QVERIFY(returned);
}

void tst_CommonPopupDialog::acceptsAbsurdSizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("nothing") << QSize(0, 0) << QSize(0, 0);
    QTest::newRow("invalid") << QSize() << QSize(0, 0);
    QTest::newRow("negative") << QSize(-400, -300) << QSize(0, 0);
    QTest::newRow("narrow") << QSize(10, 300) << QSize(10, 300);
    QTest::newRow("huge") << QSize(1 << 20, 1) << QSize(1 << 20, 1);
}

void tst_CommonPopupDialog::acceptsAbsurdSizes()
{
    QFETCH(const QSize, size);
    QFETCH(const QSize, expected);
    const ExpectedWarnings negativeSizes("Negative sizes");
    CommonPopupDialog dialog(nullptr, QStringLiteral("Camera"), size, true, true, true, false, true);
    QCOMPARE(dialog.size(), expected.boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)));
    QCOMPARE(bodyOf(dialog)->size(), dialog.size());
    QCOMPARE(titleOf(dialog)->size(), QSize(qMax(0, dialog.width() - 18), 22));
    QCOMPARE(titleLineOf(dialog)->size(), QSize(dialog.width(), 1));
    if (size.width() > 1000) // more than a screen can show
        return;
    InsideLoop::run([&] { closeButtonOf(dialog)->click(); });
    QCOMPARE(dialog.exec(), CommonPopupDialog::Closed);
    if (!expected.isEmpty() || !TestMain::isOnWindows())
        QCOMPARE(dialog.size(), expected);
}

ORV_TEST_MAIN(tst_CommonPopupDialog)

#include "tst_commonpopupdialog.moc"
