#include "insideloop.h"
#include "logcapture.h"
#include "maskeddialogs.h"
#include "mouseevents.h"
#include "orvmaskctrl.h"
#include "popupmessage.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>

using namespace MaskedDialogs;

using Maker = std::function<std::unique_ptr<PopupDlgWithMask>()>;

Q_DECLARE_METATYPE(Action)
Q_DECLARE_METATYPE(Maker)

class tst_PopupDlgWithMask : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void leavesTheMaskAloneWithoutUseMask();
    void buildsItsWindow_data();
    void buildsItsWindow();
    void staysWhereItIs_data();
    void staysWhereItIs();
    void buildsItsBackground();
    void laysOutTheMessage();
    void buildsTheTitleRow();
    void buildsTheContent();
    void buildsTheBottomRow();
    void limitsTheContentHeight();
    void setsItsTexts();

    void buttonsLogAndSignal_data();
    void buttonsLogAndSignal();

    void masksWhileVisible();
    void masksForExec();
    void sharesTheMask();
    void releasesTheMaskWhenDestroyed();
    void releasesAMaskThatOthersAskedFor_data();
    void releasesAMaskThatOthersAskedFor();
    void followsItsNativeWindow();

    void acceptsAbsurdArguments();
    void worksWithoutTheMaskController();

private:
    static OrvMaskCtrl *mask() { return OrvMaskCtrl::getInstance(nullptr); }
    static bool isMasked() { return mask()->getMaskWidget()->isVisible(); }

    QWidget m_window;
};

void tst_PopupDlgWithMask::initTestCase()
{
    m_window.resize(800, 600);
    m_window.show();
}

void tst_PopupDlgWithMask::leavesTheMaskAloneWithoutUseMask()
{
    {
        QWidget other;
        Options options;
        options.parent = &other;
        const auto dialog = makeMessage(options);
        dialog->show(true);
        dialog->hide();
        InsideLoop::run([&] { dialog->forceToExit(); });
        dialog->exec();
    }
    // Had the dialog called the controller, the mask would cover its parent.
    QWidget *label = OrvMaskCtrl::getInstance(&m_window)->getMaskWidget();
    QVERIFY(label);
    QCOMPARE(label->parentWidget(), &m_window);
}

void tst_PopupDlgWithMask::buildsItsWindow_data()
{
    QTest::addColumn<bool>("pages");
    QTest::addColumn<bool>("set");
    QTest::newRow("message, off") << false << false;
    QTest::newRow("message, on") << false << true;
    QTest::newRow("pages, off") << true << false;
    QTest::newRow("pages, on") << true << true;
}

void tst_PopupDlgWithMask::buildsItsWindow()
{
    QFETCH(const bool, pages);
    QFETCH(const bool, set);
    Options options;
    options.deleteOnClose = set;
    options.dialogWindow = set;
    options.modal = set;
    options.parent = &m_window;
    const auto dialog = pages ? makePages(2, options) : makeMessage(options);
    QCOMPARE(dialog->parentWidget(), &m_window);
    QCOMPARE(dialog->objectName(), QStringLiteral("popupdlgwithmask"));
    QCOMPARE(dialog->styleSheet(), QStringLiteral("background-color:transparent;"));
    QCOMPARE(dialog->minimumSize(), kSize);
    QCOMPARE(dialog->maximumSize(), kSize);
    QCOMPARE(dialog->size(), kSize);
    QCOMPARE(dialog->windowType(), Qt::Tool);
    QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(dialog->testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(dialog->windowModality(), set ? Qt::ApplicationModal : Qt::NonModal);
    QCOMPARE(dialog->testAttribute(Qt::WA_DeleteOnClose), set);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(int(PopupDlgWithMask::NoResult), -1);
    QCOMPARE(int(PopupDlgWithMask::Confirmed), 0);
    QCOMPARE(int(PopupDlgWithMask::Closed), 2);
    QCOMPARE(sizeof(PopupDlgWithMask::ExecResult), size_t(4));
}

void tst_PopupDlgWithMask::staysWhereItIs_data()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("message") << Maker([] { return makeMessage(); });
    QTest::newRow("pages") << Maker([] { return makePages(2); });
    QTest::newRow("one value") << Maker([] {
        PopupMessage message;
        message.useMask = false;
        return std::make_unique<PopupDlgWithMask>(message);
    });
}

void tst_PopupDlgWithMask::staysWhereItIs()
{
    QFETCH(const Maker, make);
    const auto dialog = make();
    dialog->move(300, 200);
    dialog->show(true);
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    const QPoint place = dialog->pos();
    const QPoint pos = dialog->mapToGlobal(QPoint(1, 1));
    MouseEvents::press(dialog.get(), pos);
    MouseEvents::move(dialog.get(), pos + QPoint(60, 60));
    MouseEvents::release(dialog.get(), pos + QPoint(60, 60));
    QCOMPARE(dialog->pos(), place);
}

void tst_PopupDlgWithMask::buildsItsBackground()
{
    const std::unique_ptr<PopupDlgWithMask> dialogs[] = {makeMessage(), makePages(2)};
    for (const auto &dialog : dialogs) {
        const auto labels = dialog->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        const QLabel *background = labels.first();
        QCOMPARE(dialog->layout()->indexOf(labels.first()), -1);
        QCOMPARE(background->geometry(), QRect(QPoint(), kSize));
        QCOMPARE(background->minimumSize(), kSize);
        QCOMPARE(background->maximumSize(), kSize);
        QCOMPARE(background->styleSheet(),
                 QStringLiteral("QLabel\n{\n  border-image: url(:/client/popup_bg.png); \n"
                                "  background-color: transparent; \n}"));
    }
}

void tst_PopupDlgWithMask::laysOutTheMessage()
{
    const auto dialog = makeMessage();
    const QVBoxLayout *layout = mainLayoutOf(dialog.get());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(17, 18, 19, 20));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 4);
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout()));
    QVERIFY(qobject_cast<QVBoxLayout *>(layout->itemAt(1)->layout()));
    QVERIFY(isStretch(layout->itemAt(2), Qt::Vertical));
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(3)->layout()));
    QVERIFY(!hasAlignment(layout));

    // The order in which the children were made is the order of their windows, from bottom to top.
    const QWidgetList order{dialog->findChildren<QLabel *>().first(),
                            titleOf(dialog.get()),
                            closeButtonOf(dialog.get()),
                            contentOf(dialog.get()),
                            noteOf(dialog.get()),
                            confirmButtonOf(dialog.get())};
    QWidgetList children;
    for (QObject *child : dialog->children()) {
        if (child->isWidgetType())
            children << static_cast<QWidget *>(child);
    }
    QCOMPARE(children, order);
    QCOMPARE(dialog->findChildren<QStackedWidget *>().size(), 0);
    QCOMPARE(dialog->findChildren<QTimer *>().size(), 0);
}

void tst_PopupDlgWithMask::buildsTheTitleRow()
{
    const std::unique_ptr<PopupDlgWithMask> dialogs[] = {makeMessage(), makePages(2)};
    for (const auto &dialog : dialogs) {
        const QLayout *row = titleRowOf(dialog.get());
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->count(), 3);
        QVERIFY(isStretch(row->itemAt(1), Qt::Horizontal));
        QVERIFY(!hasAlignment(row));

        const QLabel *title = titleOf(dialog.get());
        QCOMPARE(title->text(), QStringLiteral("Title"));
        QVERIFY(title->hasScaledContents());
        QCOMPARE(title->minimumHeight(), 22);
        QCOMPARE(title->maximumHeight(), 22);
        QCOMPARE(title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(title->styleSheet(),
                 QStringLiteral("QLabel \n{ \n background: transparent; font-size: 16px;\n"
                                " font-weight: Medium; \n color: #333333; \n}"));

        const QPushButton *close = closeButtonOf(dialog.get());
        QCOMPARE(close->minimumSize(), QSize(16, 16));
        QCOMPARE(close->maximumSize(), QSize(16, 16));
        QCOMPARE(close->focusPolicy(), Qt::NoFocus);
        QCOMPARE(close->cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(close->text(), QString());
        QVERIFY(!close->isHidden());
        QCOMPARE(
            close->styleSheet(),
            QStringLiteral("QPushButton {background: transparent;"
                           "border-image:url(:/noviceguide/resources/newui/noviceguide/closebtn.png);}\n"
                           "QPushButton:hover {background: transparent;"
                           "border-image:url(:/noviceguide/resources/newui/noviceguide/closebtn.png);}"));
    }
}

void tst_PopupDlgWithMask::buildsTheContent()
{
    const auto dialog = makeMessage();
    const QLayout *column = dialog->layout()->itemAt(1)->layout();
    QCOMPARE(column->contentsMargins(), QMargins(0, 12, 0, 0));
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->count(), 1);
    const QLabel *content = contentOf(dialog.get());
    QCOMPARE(content->text(), QStringLiteral("Content"));
    QCOMPARE(content->minimumHeight(), 20);
    QCOMPARE(content->maximumHeight(), 40);
    QCOMPARE(content->alignment(), Qt::AlignLeft);
    QCOMPARE(content->styleSheet(),
             QStringLiteral("QLabel \n{ \n background: transparent;font-size: 14px;\n font-weight: Normal; \n"
                            " color: #333333; \nqproperty-wordWrap: true;\ntext-align: left; \n}"));
    dialog->show(true);
    QVERIFY(content->wordWrap());
}

void tst_PopupDlgWithMask::buildsTheBottomRow()
{
    const std::unique_ptr<PopupDlgWithMask> dialogs[] = {makeMessage(), makePages(2)};
    const QString block =
        QStringLiteral("{ \n background-color:#4B66EB;\n border-radius:4px;\n font-size: 12px;\n"
                       " font-weight: Medium;\n border:0px solid #FFFFFF;\n color:#FFFFFF;\n"
                       " padding-left: 3px;\n padding-right:3px;\n}");
    for (const auto &dialog : dialogs) {
        const QLayout *row = bottomRowOf(dialog.get());
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->count(), 3);
        QVERIFY(isStretch(row->itemAt(1), Qt::Horizontal));
        QVERIFY(!hasAlignment(row));

        const QLabel *note = noteOf(dialog.get());
        QCOMPARE(note->text(), QStringLiteral("1/3"));
        QCOMPARE(note->minimumSize(), QSize(50, 22));
        QCOMPARE(note->maximumSize(), QSize(50, 22));
        QCOMPARE(note->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QVERIFY(note->testAttribute(Qt::WA_LayoutUsesWidgetRect));
        QCOMPARE(note->styleSheet(),
                 QStringLiteral("QLabel \n{ \n background: transparent; font-size: 13px;\n"
                                " font-weight: Medium; \n color: #666666; \n}"));

        const QPushButton *confirm = confirmButtonOf(dialog.get());
        QCOMPARE(confirm->text(), QStringLiteral("OK"));
        QCOMPARE(confirm->minimumSize(), QSize(68, 24));
        QCOMPARE(confirm->maximumSize(), QSize(68, 24));
        QCOMPARE(confirm->focusPolicy(), Qt::NoFocus);
        QCOMPARE(confirm->cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(confirm->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(confirm->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QVERIFY(confirm->testAttribute(Qt::WA_LayoutUsesWidgetRect));
        QCOMPARE(confirm->styleSheet(), QStringLiteral("QPushButton \n%1\nQPushButton:hover \n%1\n"
                                                       "QPushButton:pressed \n%1")
                                            .arg(block));
    }
}

void tst_PopupDlgWithMask::limitsTheContentHeight()
{
    const auto dialog = makeMessage();
    dialog->setContent(QStringLiteral("A long text. ").repeated(100));
    dialog->show(true);
    QCOMPARE(contentOf(dialog.get())->height(), 40);
    dialog->setContent(QString());
    QCoreApplication::sendPostedEvents();
    QVERIFY(contentOf(dialog.get())->height() >= 20);
}

void tst_PopupDlgWithMask::setsItsTexts()
{
    const std::unique_ptr<PopupDlgWithMask> dialogs[] = {makeMessage(), makePages(2)};
    for (const auto &dialog : dialogs) {
        dialog->setTitle(QStringLiteral("New title"));
        dialog->setConfirmBtnText(QStringLiteral("Got it"));
        QCOMPARE(titleOf(dialog.get())->text(), QStringLiteral("New title"));
        QCOMPARE(confirmButtonOf(dialog.get())->text(), QStringLiteral("Got it"));
    }
    dialogs[0]->setContent(QStringLiteral("New content"));
    QCOMPARE(contentOf(dialogs[0].get())->text(), QStringLiteral("New content"));
}

void tst_PopupDlgWithMask::buttonsLogAndSignal_data()
{
    QTest::addColumn<bool>("pages");
    QTest::newRow("message") << false;
    QTest::newRow("pages") << true;
}

void tst_PopupDlgWithMask::buttonsLogAndSignal()
{
    QFETCH(const bool, pages);
    const auto dialog = pages ? makePages(2) : makeMessage();
    const LogCapture log;
    QStringList order;
    InsideLoop::EventHook hook(dialog.get(), QEvent::Close, [&](QEvent *) {
        order << libraryTexts(log) << QStringLiteral("closes");
        return false;
    });
    connect(dialog.get(), &PopupDlgWithMask::closeMsgBox, this, [&] {
        order << libraryTexts(log).mid(1)
              << (dialog->isVisible() ? QStringLiteral("visible") : QStringLiteral("hidden"));
    });
    dialog->show(true);
    InsideLoop::click(confirmButtonOf(dialog.get()));
    const QString confirmed = QStringLiteral("AAAAA--PopupDlgWithMask--confirm btn clicked");
    QCOMPARE(order, QStringList({confirmed, QStringLiteral("closes"), confirmed + QLatin1String("--end"),
                                 QStringLiteral("hidden")}));
    QCOMPARE(libraryTexts(log).size(), 2);
    const QVector<LogLine> lines = log.lines();
    for (const LogLine &line : lines) {
        if (!libraryTexts(log).contains(line.text))
            continue;
        QCOMPARE(line.type, QtInfoMsg);
        QVERIFY(line.file.endsWith(QLatin1String("widgets/popupdlgwithmask.cpp")));
        QVERIFY2(line.function.startsWith(QLatin1String("void PopupDlgWithMask::confirm")),
                 qPrintable(line.function));
    }

    LogCapture closeLog;
    order.clear();
    dialog->show(true);
    InsideLoop::click(closeButtonOf(dialog.get()));
    QCOMPARE(libraryTexts(closeLog),
             QStringList(QStringLiteral("AAAAA--PopupDlgWithMask--close btn clicked")));
    QCOMPARE(closeLog.lines().constLast().type, QtInfoMsg);
    QVERIFY(closeLog.lines().constLast().function.startsWith(QLatin1String("void PopupDlgWithMask::close")));
    QCOMPARE(order.last(), QStringLiteral("hidden"));
}

void tst_PopupDlgWithMask::masksWhileVisible()
{
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto dialog = makeMessage(options);
    QVERIFY(!isMasked());
    dialog->show(false);
    QVERIFY(dialog->isVisible());
    QVERIFY(isMasked());
    dialog->hide();
    QVERIFY(!isMasked());
    dialog->hide();
    QVERIFY(!isMasked());
    dialog->show(true);
    QVERIFY(isMasked());
    InsideLoop::click(confirmButtonOf(dialog.get()));
    QVERIFY(!isMasked());
}

void tst_PopupDlgWithMask::masksForExec()
{
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto dialog = makePages(2, options);
    QPoint pos(20, 20);
    for (const bool atPos : {false, true}) {
        InsideLoop::run([&] {
            QVERIFY(isMasked());
            dialog->hide();
            QVERIFY(!isMasked());
        });
        if (atPos)
            dialog->execWithPos(pos);
        else
            dialog->exec();
        QVERIFY(!isMasked());
    }
}

void tst_PopupDlgWithMask::sharesTheMask()
{
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto first = makeMessage(options);
    const auto second = makeMessage(options);
    first->show(true);
    second->show(true);
    first->forceToExit();
    QVERIFY(isMasked());
    second->forceToExit();
    QVERIFY(!isMasked());
}

void tst_PopupDlgWithMask::releasesTheMaskWhenDestroyed()
{
    auto *parent = new QWidget;
    Options options;
    options.useMask = true;
    options.parent = parent;
    auto *dialog = newMessage(options);
    dialog->show(true);
    QVERIFY(isMasked());
    delete dialog;
    QVERIFY(!isMasked());

    newPages(2, 2, 2, options)->show(true);
    QVERIFY(isMasked());
    delete parent;
    QVERIFY(!isMasked());
}

void tst_PopupDlgWithMask::releasesAMaskThatOthersAskedFor_data()
{
    QTest::addColumn<Action>("leave");
    QTest::newRow("hidden") << Action([](PopupDlgWithMask *dialog) {
        dialog->QWidget::show();
        dialog->hide();
    });
    QTest::newRow("hidden again") << Action([](PopupDlgWithMask *dialog) {
        dialog->QWidget::show();
        dialog->hide();
        mask()->showMasking(dialog);
        dialog->hide();
    });
    QTest::newRow("never shown") << Action([](PopupDlgWithMask *dialog) { dialog->hide(); });
    QTest::newRow("closed") << Action([](PopupDlgWithMask *dialog) {
        dialog->QWidget::show();
        dialog->close();
    });
    QTest::newRow("destroyed") << Action([](PopupDlgWithMask *dialog) {
        dialog->QWidget::show();
        delete dialog;
    });
    QTest::newRow("destroyed, never shown") << Action([](PopupDlgWithMask *dialog) { delete dialog; });
}

void tst_PopupDlgWithMask::releasesAMaskThatOthersAskedFor()
{
    QFETCH(const Action, leave);
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const QPointer<PopupDlgWithMask> dialog = newMessage(options);
    OrvMaskCtrl::getInstance(&m_window)->showMasking(dialog);
    QVERIFY(isMasked());
    leave(dialog);
    QVERIFY(!isMasked());
    delete dialog;
}

void tst_PopupDlgWithMask::followsItsNativeWindow()
{
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto dialog = makePages(2, options);
    dialog->show(true);
    QVERIFY(isMasked());
    dialog->windowHandle()->hide();
    QVERIFY(!isMasked());
    QVERIFY(!pageTimerOf(dialog.get())->isActive());
    dialog->windowHandle()->show();
    QVERIFY(dialog->isVisible());
    QVERIFY(pageTimerOf(dialog.get())->isActive());
}

void tst_PopupDlgWithMask::acceptsAbsurdArguments()
{
    const ExpectedWarnings qtComplains("Negative sizes|Could not parse stylesheet of object QLabel");
    for (const QSize size : {QSize(), QSize(0, 0), QSize(-5, -5), QSize(1, 1), QSize(100000, 2)}) {
        for (const int margin : {0, -100, 100000}) {
            PopupDlgWithMask dialog(QStringLiteral("/nowhere/%1;}.png"), size, margin, margin, margin, margin,
                                    QString(), QString(), QString(), QString(), false, false, true, false,
                                    nullptr);
            QCOMPARE(dialog.size(), size.expandedTo(QSize(0, 0)));
            const int own = margin + 16;
            if (own >= 0) // Qt takes negative margins for the style's own
                QCOMPARE(dialog.layout()->contentsMargins(), QMargins(own, own, own, own));
            QCOMPARE(dialog.findChild<QLabel *>()->size(), dialog.size());
            if (size.width() > 1000) // more than a screen can show
                continue;
            InsideLoop::run([&] { confirmButtonOf(&dialog)->click(); });
            QCOMPARE(dialog.exec(), PopupDlgWithMask::Confirmed);
        }
    }
}

void tst_PopupDlgWithMask::worksWithoutTheMaskController()
{
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto open = makeMessage(options);
    open->show(true);
    OrvMaskCtrl::deleteInstance();
    open->hide();
    InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(open.get())); });
    QCOMPARE(open->exec(), PopupDlgWithMask::Confirmed);
    QVERIFY(!OrvMaskCtrl::getInstance(&m_window));
}

ORV_TEST_MAIN(tst_PopupDlgWithMask)

#include "tst_popupdlgwithmask.moc"
