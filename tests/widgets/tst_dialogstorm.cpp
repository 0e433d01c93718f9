#include "commonpopupdialog.h"
#include "logcapture.h"
#include "maskeddialogs.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popuploadingdlgwithmask.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtGui/QGuiApplication>
#include <QtGui/QMovie>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <functional>
#include <memory>
#include <random>

using namespace MaskedDialogs;

namespace {

constexpr int kSteps = 2500;
constexpr int kMostDialogs = 8;
constexpr int kDeepest = 6;
/// Where the main window is destroyed, and the mask with it, so much of the storm is over.
constexpr int kWindowLastsPercent = 80;

/// Opens what is meant for subclasses.
class OpenPopup : public CommonPopupDialog
{
public:
    using CommonPopupDialog::CommonPopupDialog;
    using CommonPopupDialog::setExecResult;
};

/// Does random things to random dialogs, from the event loop, from slots of the dialogs and while they
/// close.
///
/// Each step runs in whatever loop turns just then: that of the application, or that of the dialog which
/// was executed last. The same seed gives the same storm.
class Storm : public QObject
{
public:
    Storm(unsigned int seed, QWidget *window, bool windowDies)
        : m_random(seed)
        , m_window(window)
        , m_windowDies(windowDies)
    {
    }

    ~Storm() override
    {
        for (Entry &entry : m_entries)
            delete entry.dialog;
        removeTheDead();
    }

    Q_DISABLE_COPY(Storm)

    void run()
    {
        while (m_step < kSteps) {
            schedule();
            QCoreApplication::exec();
        }
    }

    /// What went wrong; empty if nothing did.
    QString complaint() const { return m_complaint; }
    int runs() const { return m_runs; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        const QPointer<QObject> alive(watched);
        auto *dialog = static_cast<QWidget *>(watched);
        if (oneIn(6))
            react(dialog);
        if (!alive)
            return true;
        const bool refused = oneIn(10);
        event->setAccepted(!refused);
        return refused;
    }

private:
    struct Entry
    {
        QPointer<QWidget> dialog;
        bool masked = false;
        QPointer<QMovie> movie;
    };

    unsigned int upTo(unsigned int count) { return static_cast<unsigned int>(m_random()) % count; }
    bool oneIn(unsigned int count) { return upTo(count) == 0; }

    void schedule()
    {
        if (m_scheduled)
            return;
        m_scheduled = true;
        QTimer::singleShot(0, this, [this] {
            m_scheduled = false;
            step();
        });
    }

    void step()
    {
        if (++m_step >= kSteps) {
            // Whatever still blocks is ended by the end of its dialog.
            for (const Entry &entry : qAsConst(m_entries))
                delete entry.dialog;
            QCoreApplication::exit();
            return;
        }
        schedule();
        if (m_windowDies && m_step == kSteps * kWindowLastsPercent / 100)
            delete m_window;
        checkTheMask();
        removeTheDead();
        if (m_entries.size() < kMostDialogs && oneIn(3))
            add();
        if (QWidget *dialog = anyDialog())
            act(dialog);
    }

    QWidget *anyDialog()
    {
        if (m_entries.isEmpty())
            return nullptr;
        // The deeper the stack, the more often it is the innermost run that something happens to.
        if (m_innermost && upTo(kDeepest) < static_cast<unsigned int>(m_depth))
            return m_innermost;
        return m_entries.at(static_cast<int>(upTo(static_cast<unsigned int>(m_entries.size())))).dialog;
    }

    void removeTheDead()
    {
        for (int i = m_entries.size() - 1; i >= 0; --i) {
            if (!m_entries.at(i).dialog) {
                delete m_entries.at(i).movie; // left behind by the loading dialog
                m_entries.remove(i);
            }
        }
    }

    /// The mask is there exactly as long as a dialog that uses it is.
    void checkTheMask()
    {
        const QWidget *label = OrvMaskCtrl::getInstance(nullptr)->getMaskWidget();
        if (!label)
            return;
        bool wanted = false;
        for (const Entry &entry : qAsConst(m_entries))
            wanted = wanted || (entry.masked && entry.dialog && entry.dialog->isVisible());
        if (wanted != !label->isHidden())
            complain(QStringLiteral("the mask is %1")
                         .arg(wanted ? QLatin1String("hidden") : QLatin1String("shown")));
    }

    void complain(const QString &text)
    {
        if (m_complaint.isEmpty())
            m_complaint = QStringLiteral("step %1: %2").arg(m_step).arg(text);
    }

    QWidget *anyParent()
    {
        switch (upTo(4)) {
        case 0:
            return nullptr;
        case 1:
            return m_entries.isEmpty() ? nullptr : m_entries.first().dialog.data();
        default:
            return m_window;
        }
    }

    void add()
    {
        Entry entry;
        QWidget *parent = anyParent();
        const bool modal = oneIn(2);
        Options options;
        options.useMask = oneIn(2);
        options.deleteOnClose = oneIn(2);
        options.modal = modal;
        options.parent = parent;
        switch (upTo(6)) {
        case 0:
            entry.dialog = addPopup(parent, modal);
            break;
        case 1:
            entry.dialog = addMasked(newMessage(options));
            entry.masked = options.useMask;
            break;
        case 2:
            entry.dialog = addMasked(newPages(3, 3, 3, options));
            entry.masked = options.useMask;
            break;
        case 3:
            entry.dialog = addTip(parent);
            break;
        case 4:
            entry.dialog = addUpdate(parent);
            break;
        default:
            entry.dialog = new PopupLoadingDlgWithMask(QSize(200, 200), QSize(96, 120), QString(), parent);
            entry.movie = entry.dialog->findChild<QLabel *>()->movie();
        }
        entry.dialog->installEventFilter(this);
        m_entries << entry;
    }

    QWidget *addPopup(QWidget *parent, bool modal)
    {
        auto *dialog = new OpenPopup(parent, QStringLiteral("Popup"), QSize(300, 200), oneIn(2), true,
                                     oneIn(2), modal, true);
        dialog->setAttribute(Qt::WA_DeleteOnClose, oneIn(3));
        reactTo(dialog, &CommonPopupDialog::sigClosed);
        return dialog;
    }

    QWidget *addMasked(PopupDlgWithMask *dialog)
    {
        reactTo(dialog, &PopupDlgWithMask::closeMsgBox);
        return dialog;
    }

    QWidget *addTip(QWidget *parent)
    {
        const QVector<QString> lines(oneIn(4) ? 3 : 4, QStringLiteral("Line"));
        auto *dialog = oneIn(2) ? new TipsDlgWithCheckbox(parent, QSize(300, 200), QString(), lines,
                                                          QString(), QString())
                                : new TipsDlgWithCheckbox(parent, QSize(300, 200), QString(), QString(),
                                                          QString(), QString());
        dialog->setCheckboxState(oneIn(2));
        reactTo(dialog, &TipsDlgWithCheckbox::closeMsgBox);
        reactTo(dialog, &TipsDlgWithCheckbox::sig_BtnClicked);
        connect(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged, this,
                [this, dialog] { react(dialog); });
        return dialog;
    }

    QWidget *addUpdate(QWidget *parent)
    {
        auto *dialog = new OrvUpdateTipDlg(QSize(430, 230), QString(), 17, 14, 19, 22, parent, QString(),
                                           QString(), oneIn(2), oneIn(2));
        reactTo(dialog, &OrvUpdateTipDlg::sig_closeMsgBox);
        reactTo(dialog, &OrvUpdateTipDlg::sig_cancelBtnClicked);
        reactTo(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked);
        return dialog;
    }

    template<class Sender, class Dialog>
    void reactTo(Sender *dialog, void (Dialog::*signal)())
    {
        connect(dialog, signal, this, [this, dialog] { react(dialog); });
    }

    /// What a slot of a dialog does.
    void react(QWidget *dialog)
    {
        switch (upTo(12)) {
        case 0:
            delete dialog;
            break;
        case 1:
            if (QWidget *parent = dialog->parentWidget(); parent && parent != m_window)
                delete parent;
            break;
        case 2:
        case 3:
            if (QWidget *other = anyDialog())
                execute(other);
            break;
        case 4:
            execute(dialog);
            break;
        case 5:
            act(dialog);
            break;
        default:
            break;
        }
    }

    void act(QWidget *dialog)
    {
        if (m_depth >= kDeepest) {
            delete dialog;
            return;
        }
        switch (upTo(16)) {
        case 0:
        case 1:
        case 2:
            execute(dialog);
            break;
        case 3:
            show(dialog);
            break;
        case 4:
            dialog->hide();
            break;
        case 5:
            dialog->close();
            break;
        case 6:
            delete dialog;
            break;
        case 7:
            dialog->deleteLater();
            break;
        case 8:
            if (QWidget *parent = dialog->parentWidget(); parent && parent != m_window)
                delete parent;
            break;
        case 9:
            force(dialog);
            break;
        case 10:
            dialog->setFixedSize(dialog->width() + 1, dialog->height());
            break;
        case 11:
            dialog->setWindowFlags(dialog->windowFlags() ^ Qt::WindowStaysOnTopHint);
            break;
        case 12:
            if (oneIn(8))
                QCoreApplication::exit();
            break;
        default:
            press(dialog);
        }
    }

    /// Shows the dialog as its own interface does.
    static void show(QWidget *dialog)
    {
        if (auto *masked = qobject_cast<PopupDlgWithMask *>(dialog))
            masked->show(true);
        else
            dialog->show();
    }

    static void force(QWidget *dialog)
    {
        if (auto *popup = qobject_cast<CommonPopupDialog *>(dialog))
            popup->exitEventLoop();
        else if (auto *masked = qobject_cast<PopupDlgWithMask *>(dialog))
            masked->forceToExit();
        else if (auto *tip = qobject_cast<TipsDlgWithCheckbox *>(dialog))
            tip->forceToExit();
    }

    void press(QWidget *dialog)
    {
        const auto buttons = dialog->findChildren<QAbstractButton *>();
        if (!buttons.isEmpty())
            buttons.at(static_cast<int>(upTo(static_cast<unsigned int>(buttons.size()))))->click();
    }

    /// Blocks in the dialog's own loop, where the next steps run.
    void execute(QWidget *dialog)
    {
        if (m_depth >= kDeepest)
            return;
        const QPointer<QWidget> outer = m_innermost;
        m_innermost = dialog;
        ++m_depth;
        ++m_runs;
        const int result = executed(dialog);
        --m_depth;
        m_innermost = outer;
        if (result != -1 && result != 0 && result != 2)
            complain(QStringLiteral("exec() returned %1").arg(result));
    }

    int executed(QWidget *dialog)
    {
        QPoint pos(static_cast<int>(upTo(300)), static_cast<int>(upTo(300)));
        if (auto *popup = qobject_cast<CommonPopupDialog *>(dialog))
            return popup->exec();
        if (auto *masked = qobject_cast<PopupDlgWithMask *>(dialog))
            return oneIn(3) ? masked->execWithPos(pos) : masked->exec();
        if (auto *tip = qobject_cast<TipsDlgWithCheckbox *>(dialog))
            tip->exec();
        else
            show(dialog);
        return 0;
    }

    std::mt19937 m_random;
    QPointer<QWidget> m_window;
    bool m_windowDies;
    QVector<Entry> m_entries;
    QPointer<QWidget> m_innermost;
    QString m_complaint;
    int m_step = 0;
    int m_depth = 0;
    int m_runs = 0;
    bool m_scheduled = false;
};

} // namespace

/// Random sequences of what can happen to dialogs that block in loops of their own. ORV_STORM_SEED=<number>
/// runs one more.
class tst_DialogStorm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void survives_data();
    void survives();
    void cleanupTestCase();

private:
    QPointer<QWidget> m_window;
};

void tst_DialogStorm::initTestCase()
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_window = new QWidget;
    m_window->resize(800, 600);
    m_window->show();
    OrvMaskCtrl::getInstance(m_window);
}

void tst_DialogStorm::cleanupTestCase()
{
    delete m_window;
    OrvMaskCtrl::deleteInstance();
}

void tst_DialogStorm::survives_data()
{
    QTest::addColumn<unsigned int>("seed");
    QTest::addColumn<bool>("windowDies");
    bool given = false;
    const unsigned int seed = qEnvironmentVariable("ORV_STORM_SEED").toUInt(&given);
    if (given)
        QTest::addRow("given %u", seed) << seed << false;
    QTest::newRow("1") << 1U << false;
    QTest::newRow("2") << 2U << false;
    QTest::newRow("the window dies") << 3U << true; // the mask does not come back after that
}

void tst_DialogStorm::survives()
{
    QFETCH(const unsigned int, seed);
    QFETCH(const bool, windowDies);
    qInfo("The seed of this storm is %u.", seed);
    Storm storm(seed, m_window, windowDies);
    {
        const ExpectedWarnings execTwice("QEventLoop::exec: instance 0x[0-9a-f]+ has already called exec");
        const LogCapture quiet;
        storm.run();
    }
    QVERIFY2(storm.complaint().isEmpty(),
             qPrintable(QStringLiteral("seed %1, ").arg(seed) + storm.complaint()));
    QVERIFY(storm.runs() > kSteps / 20);
    QCOMPARE(m_window.isNull(), windowDies);
}

ORV_TEST_MAIN(tst_DialogStorm)

#include "tst_dialogstorm.moc"
