#include "customcomboxheader.h"
#include "customshadowcombox.h"
#include "logcapture.h"
#include "mouseevents.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>

#include <functional>
#include <memory>

using Add = std::function<void(CustomShadowCombox *)>;
Q_DECLARE_METATYPE(Add)

namespace {

// The combo box with what it is made of.
class Combo : public CustomShadowCombox
{
public:
    using CustomShadowCombox::CustomShadowCombox;
    using CustomShadowCombox::showPopup;
    using CustomShadowCombox::slotAddOneLiveOption;
    using CustomShadowCombox::slotCurrentGrayIndexChanged;
    using CustomShadowCombox::slotCurrentIndexChanged;
    using CustomShadowCombox::slotDeleteOneLiveOption;
    using CustomShadowCombox::slotHeaderClicked;

    CustomComboxHeader *header() const { return findChild<CustomComboxHeader *>(); }
    QString headerText() const { return headerLabel(0)->text(); }
    QString arrow() const { return headerLabel(1)->styleSheet(); }
    QLabel *headerLabel(int index) const { return header()->findChildren<QLabel *>().at(index); }
    QWidget *popup() const
    {
        const QList<QWidget *> children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *child : children) {
            if (child->isWindow())
                return child;
        }
        return nullptr;
    }
    bool isOpen() const { return popup()->isVisible(); }
    // In display order.
    QWidget *row(int index) const
    {
        const auto *area = popup()->findChild<QScrollArea *>();
        return area->widget()->layout()->itemAt(index)->widget();
    }
    QLabel *rowLabel(int row, int index) const
    {
        return this->row(row)->findChildren<QLabel *>().value(index);
    }
    void add(int rows)
    {
        for (int index = 0; index < rows; ++index)
            addItem(QStringLiteral("Row %1").arg(count()), 16);
    }
    // Clicks with the pointer where they are: what is outside is judged by the pointer.
    void clickRow(int index) const
    {
        const QPoint pos = row(index)->mapTo(popup(), row(index)->rect().center());
        QCursor::setPos(popup()->mapToGlobal(pos));
        QTest::mouseClick(popup()->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
    }
    void clickHeader() const
    {
        QCursor::setPos(header()->mapToGlobal(header()->rect().center()));
        QTest::mouseClick(header(), Qt::LeftButton);
    }
};

// The signals of a combo box, in the order in which they come, with whether the list was open then.
class SignalLog
{
public:
    explicit SignalLog(Combo *combo)
    {
        const auto note = [this, combo](const QString &what) {
            m_entries << what + (combo->isOpen() ? QStringLiteral(" open") : QStringLiteral(" closed"));
        };
        const auto noteIndex = [note](const char *what, int index) {
            note(QStringLiteral("%1(%2)").arg(QLatin1String(what)).arg(index));
        };
        QObject::connect(combo, &Combo::currentIndexChanged, combo,
                         [noteIndex](int index) { noteIndex("current", index); });
        QObject::connect(combo, &Combo::currentGrayIndexChanged, combo,
                         [noteIndex](int index) { noteIndex("gray", index); });
        QObject::connect(combo, &Combo::signalPopWidHideWhenClickOtherPos, combo,
                         [note] { note(QStringLiteral("hidden")); });
        QObject::connect(combo, &Combo::signalMouseMoveLeavePopup, combo,
                         [this](QPoint pos) { moves << pos; });
        QObject::connect(combo, &Combo::signalAddOneLiveOption, combo,
                         [note] { note(QStringLiteral("add")); });
        QObject::connect(combo, &Combo::signalDeleteOneLiveOption, combo,
                         [noteIndex](int index) { noteIndex("delete", index); });
    }
    // What came since the last call.
    QStringList take()
    {
        QStringList entries;
        entries.swap(m_entries);
        return entries;
    }

    QVector<QPoint> moves; // signalMouseMoveLeavePopup(): it comes whenever the pointer goes anywhere

private:
    QStringList m_entries;
};

const QStringList kHiddenOnce{QStringLiteral("hidden closed")};
const QString kUpArrow = QStringLiteral("QLabel{border-image:url(:/images/images/combox/up.png);}");
const QString kDownArrow = QStringLiteral("QLabel{border-image:url(:/images/images/combox/down.png);}");

void sendDeactivate(QWidget *popup)
{
    QEvent event(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(popup, &event);
}

} // namespace

class tst_CustomShadowCombox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void interfaceStandsInOrder();
    void constructs_data();
    void constructs();
    void watchesTheApplication();
    void addsRows_data();
    void addsRows();
    void onlyOnePlainRowLogs();
    void selects();
    void selectingLogs();
    void indexSurvivesClear();
    void rowsKeepData();
    void graysRows();
    void forwardsHeaderStyles();
    void isActive();
    void sizesFollow();

    void opensBelow();
    void opensAbove();
    void opensWhereItJustFits();
    void smallStyleOpens();
    void opensOnTheScreenOfItsHeader();
    void emptyListDoesNotOpen();

    void choosingAnotherRow();
    void choosingTheCurrentRow();
    void choosingAGrayRow();
    void draggingOnARow();
    void headerClickCloses();
    void headerClickClosesAnEmptyList();
    void headerPressIsLeftToTheHeader();
    void hidePopupReportsAlways();
    void outsidePressCloses_data();
    void outsidePressCloses();
    void pressInsideKeeps_data();
    void pressInsideKeeps();
    void deactivationCloses_data();
    void deactivationCloses();
    void deactivationOfAnotherWindowKeeps();
    void anyKeyCloses_data();
    void anyKeyCloses();
    void movesOutsideAreReported();
    void closedListReportsNothing();
    void eventsAreNeverConsumed();
    void reopenedByItsOwnReport();
    void relaysLiveOptions();

    void rowsChangeWhileOpen();
    void pressOnOneClosesTheOther();
    void destroyedWhileOpen_data();
    void destroyedWhileOpen();
    void destroyedInItsSignals_data();
    void destroyedInItsSignals();
    void clearedInItsSignals_data();
    void clearedInItsSignals();
    void withoutPopupOrHeader();
    void manyRows();

private:
    void open();

    std::unique_ptr<QWidget> m_window;
    QPointer<Combo> m_combo;
};

void tst_CustomShadowCombox::init()
{
    m_window = std::make_unique<QWidget>();
    m_window->setGeometry(100, 60, 300, 160);
    m_combo = new Combo(m_window.get());
    m_combo->setGeometry(20, 40, 200, 48);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCursor::setPos(m_window->mapToGlobal(QPoint(290, 10)));
}

void tst_CustomShadowCombox::cleanup()
{
    m_window.reset();
}

void tst_CustomShadowCombox::open()
{
    if (m_combo->count() == 0)
        m_combo->add(3);
    m_combo->clickHeader();
    QVERIFY(m_combo->isOpen());
    QVERIFY(QTest::qWaitForWindowExposed(m_combo->popup()));
    QCursor::setPos(m_window->mapToGlobal(QPoint(290, 10)));
    QCoreApplication::processEvents();
}

void tst_CustomShadowCombox::interfaceStandsInOrder()
{
    const QList<QByteArray> expected{
        "currentIndexChanged(int)",
        "currentGrayIndexChanged(int)",
        "signalPopWidHideWhenClickOtherPos()",
        "signalMouseMoveLeavePopup(QPoint)",
        "signalAddOneLiveOption()",
        "signalDeleteOneLiveOption(int)",
        "slotHeaderClicked()",
        "slotCurrentIndexChanged(int)",
        "slotCurrentGrayIndexChanged(int)",
        "slotAddOneLiveOption()",
        "slotDeleteOneLiveOption(int)",
    };
    const QMetaObject &meta = CustomShadowCombox::staticMetaObject;
    QList<QByteArray> methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        methods << meta.method(index).methodSignature();
    QCOMPARE(methods, expected);
}

void tst_CustomShadowCombox::constructs_data()
{
    QTest::addColumn<int>("arguments");
    QTest::addColumn<bool>("small");
    QTest::addColumn<int>("heightOfOneRow"); // as the list counts it
    QTest::newRow("parent") << 1 << false << 48;
    QTest::newRow("normal") << 2 << false << 48;
    QTest::newRow("small") << 2 << true << 28;
    QTest::newRow("normal, height ignored") << 3 << false << 48;
    QTest::newRow("small, height") << 3 << true << 33;
}

void tst_CustomShadowCombox::constructs()
{
    QFETCH(int, arguments);
    QFETCH(bool, small);
    QFETCH(int, heightOfOneRow);
    std::unique_ptr<Combo> combo;
    if (arguments == 1)
        combo = std::make_unique<Combo>(m_window.get());
    else if (arguments == 2)
        combo = std::make_unique<Combo>(small, m_window.get());
    else
        combo = std::make_unique<Combo>(small, 33, m_window.get());

    QCOMPARE(combo->parentWidget(), m_window.get());
    QVERIFY(combo->hasMouseTracking());
    const auto *layout = qobject_cast<QHBoxLayout *>(combo->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), combo->header());
    QCOMPARE(combo->header()->maximumHeight(), small ? QWIDGETSIZE_MAX : 48);
    QCOMPARE(combo->header()->layout()->contentsMargins(),
             small ? QMargins(8, 4, 4, 4) : QMargins(16, 0, 14, 0));
    QCOMPARE(combo->headerText(), QString());

    QVERIFY(combo->popup());
    QVERIFY(combo->popup()->isHidden());
    QCOMPARE(combo->popup()->windowType(), Qt::Tool);
    QCOMPARE(combo->popup()->layout()->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(combo->currentIndex(), -1);
    QCOMPARE(combo->count(), 0);
    combo->add(1);
    QCOMPARE(combo->popup()->height(), (small ? 8 : 16) + heightOfOneRow + 8);
}

void tst_CustomShadowCombox::watchesTheApplication()
{
    class Watcher : public CustomShadowCombox
    {
    public:
        using CustomShadowCombox::CustomShadowCombox;
        int seen = 0;

    protected:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            seen += event->type() == QEvent::User ? 1 : 0;
            return CustomShadowCombox::eventFilter(watched, event);
        }
    };
    Watcher combo(nullptr);
    QObject anything;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&anything, &event);
    QCOMPARE(combo.seen, 1);
}

void tst_CustomShadowCombox::addsRows_data()
{
    QTest::addColumn<Add>("add");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<int>("iconSize");
    QTest::addColumn<int>("radius");
    QTest::addColumn<QSize>("badge");
    const QString text = QStringLiteral("Text");
    const QSize none;
    QTest::newRow("text") << Add([=](CustomShadowCombox *combo) { combo->addItem(text); }) << 48 << 16 << 20
                          << 8 << none;
    QTest::newRow("not gray") << Add([=](CustomShadowCombox *combo) { combo->addItem(text, false, true); })
                              << 48 << 16 << 20 << 8 << none;
    QTest::newRow("gray") << Add([=](CustomShadowCombox *combo) { combo->addItem(text, true, false); }) << 48
                          << 16 << 20 << 8 << QSize(56, 18);
    QTest::newRow("gray, Chinese") << Add([=](CustomShadowCombox *combo) {
        combo->addItem(text, true, true);
    }) << 48 << 16 << 20 << 8 << QSize(67, 18);
    QTest::newRow("text size") << Add([=](CustomShadowCombox *combo) { combo->addItem(text, 13); }) << 48
                               << 13 << 20 << 8 << none;
    QTest::newRow("measures") << Add([=](CustomShadowCombox *combo) { combo->addItem(text, 36, 13, 15); })
                              << 36 << 13 << 15 << 3 << none;
    QTest::newRow("small") << Add([=](CustomShadowCombox *combo) { combo->addSmallStyleItem(text); }) << 28
                           << 12 << 12 << 3 << none;
}

void tst_CustomShadowCombox::addsRows()
{
    QFETCH(Add, add);
    QFETCH(int, height);
    QFETCH(int, fontSize);
    QFETCH(int, iconSize);
    QFETCH(int, radius);
    QFETCH(QSize, badge);
    add(m_combo);
    QCOMPARE(m_combo->count(), 1);
    const QWidget *row = m_combo->row(0);
    QCOMPARE(row->minimumHeight(), height);
    QCOMPARE(row->maximumHeight(), height);
    QCOMPARE(m_combo->rowLabel(0, 0)->text(), QStringLiteral("Text"));
    QVERIFY(m_combo->rowLabel(0, 0)->styleSheet().contains(
        QStringLiteral("font-size:%1px;").arg(badge.isValid() ? 16 : fontSize)));
    QCOMPARE(m_combo->rowLabel(0, 1)->maximumSize(), QSize(iconSize, iconSize));
    QVERIFY(row->styleSheet().contains(QStringLiteral("border-radius:%1px;").arg(radius)));
    const QLabel *badgeLabel = m_combo->rowLabel(0, 2);
    QCOMPARE(badgeLabel ? badgeLabel->maximumSize() : QSize(), badge);
}

void tst_CustomShadowCombox::onlyOnePlainRowLogs()
{
    LogCapture log;
    m_combo->addItem(QStringLiteral("Text"));
    QCOMPARE(log.texts(), (QStringList{
                              QStringLiteral("--- begin new CustomComboxItem ---,text = \"Text\""),
                              QStringLiteral("--- new CustomComboxItem success ---"),
                              QStringLiteral("--- begin add item to the ShadowPopupWidget ---"),
                              QStringLiteral("--- add item to the ShadowPopupWidget success ---"),
                          }));
    const QVector<LogLine> lines = log.lines();
    for (const LogLine &line : lines) {
        QCOMPARE(line.type, QtInfoMsg);
        QVERIFY(line.file.endsWith(QLatin1String("customshadowcombox.cpp")));
        QCOMPARE(line.function, QStringLiteral("void CustomShadowCombox::addItem(QString)"));
    }
    log.clear();
    m_combo->addItem(QStringLiteral("Text"), true, false);
    m_combo->addItem(QStringLiteral("Text"), 12);
    m_combo->addItem(QStringLiteral("Text"), 30, 12, 12);
    m_combo->addSmallStyleItem(QStringLiteral("Text"));
    m_combo->clear();
    QCOMPARE(log.texts(), QStringList());
}

void tst_CustomShadowCombox::selects()
{
    SignalLog log(m_combo);
    m_combo->add(3);
    m_combo->setCurrentIndex(1);
    QCOMPARE(m_combo->currentIndex(), 1);
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 1"));
    QVERIFY(!m_combo->rowLabel(1, 1)->isHidden());
    for (const int index : {5, 3, -1, INT_MAX, INT_MIN}) {
        m_combo->setCurrentIndex(index);
        QCOMPARE(m_combo->currentIndex(), 1);
        QCOMPARE(m_combo->headerText(), QStringLiteral("Row 1"));
    }
    m_combo->setCurrentIndex(0);
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 0"));
    QVERIFY(m_combo->rowLabel(1, 1)->isHidden());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::selectingLogs()
{
    m_combo->add(3);
    const LogCapture log;
    m_combo->setCurrentIndex(5);
    QCOMPARE(log.texts(), (QStringList{QStringLiteral("AAAAA--setCurrentIndex-- 5"),
                                       QStringLiteral("AAAAA--setCurrentIndex------- 5 --END")}));
    const QVector<LogLine> lines = log.lines();
    for (const LogLine &line : lines) {
        QCOMPARE(line.type, QtInfoMsg);
        QCOMPARE(line.function, QStringLiteral("void CustomShadowCombox::setCurrentIndex(int)"));
    }
    QCOMPARE(m_combo->headerText(), QString());
}

void tst_CustomShadowCombox::indexSurvivesClear()
{
    m_combo->add(3);
    m_combo->setCurrentIndex(2);
    m_combo->clear();
    QCOMPARE(m_combo->count(), 0);
    QCOMPARE(m_combo->currentIndex(), 2);
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 2"));
    m_combo->setCurrentIndex(0); // ignored, but the text is that of the current row, of which there is none
    QCOMPARE(m_combo->currentIndex(), 2);
    QCOMPARE(m_combo->headerText(), QString());
    m_combo->add(3);
    // The index that was kept is the current one: choosing that row changes nothing.
    SignalLog log(m_combo);
    m_combo->slotCurrentIndexChanged(2);
    QCOMPARE(log.take(), QStringList());
    m_combo->slotCurrentIndexChanged(1);
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(1) closed")});
}

void tst_CustomShadowCombox::rowsKeepData()
{
    m_combo->add(2);
    m_combo->setItemData(1, QStringLiteral("data"));
    QCOMPARE(m_combo->itemData(1).toString(), QStringLiteral("data"));
    for (const int index : {-1, 0, 2}) {
        if (index != 0)
            m_combo->setItemData(index, 5);
        QVERIFY(!m_combo->itemData(index).isValid());
    }
}

void tst_CustomShadowCombox::graysRows()
{
    m_combo->add(3);
    const auto isGray = [this](int row) {
        return m_combo->rowLabel(row, 0)->styleSheet().contains(QLatin1String("#B1B1B2"));
    };
    QVector<bool> states{true, true};
    m_combo->setItemGrayState(states);
    for (int row = 0; row < 3; ++row)
        QVERIFY(!isGray(row));
    states = {true, false, true};
    m_combo->setItemGrayState(states);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(isGray(row), states.at(row));
}

void tst_CustomShadowCombox::forwardsHeaderStyles()
{
    m_combo->setHeaderStyle(QStringLiteral("QWidget#%1{background:#FFFFFF;}"));
    QCOMPARE(m_combo->header()->styleSheet(),
             QStringLiteral("QWidget#CustomComboxHeader{background:#FFFFFF;}"));
    m_combo->setHeaderTextStyle(QStringLiteral("QLabel{color:red;}"));
    QCOMPARE(m_combo->headerLabel(0)->styleSheet(), QStringLiteral("QLabel{color:red;}"));
}

void tst_CustomShadowCombox::isActive()
{
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(!m_combo->isActive());
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QVERIFY(m_combo->isActive());
    open();
    QVERIFY(QTest::qWaitForWindowActive(m_combo->popup()));
    QVERIFY(m_combo->isActive());
}

void tst_CustomShadowCombox::sizesFollow()
{
    m_combo->resize(300, 48);
    QCOMPARE(m_combo->header()->size(), QSize(300, 48));
    QCOMPARE(m_combo->header()->maximumSize(), QSize(300, 48));
    QCOMPARE(m_combo->popup()->width(), 308);
    QCOMPARE(m_combo->popup()->maximumWidth(), 308);
    m_combo->resize(120, 60);
    QCOMPARE(m_combo->header()->size(), QSize(120, 60));
    QCOMPARE(m_combo->popup()->width(), 128);
    open();
    m_combo->resize(240, 48);
    QTRY_COMPARE(m_combo->row(0)->width(), 240 - 8);
    QCOMPARE(m_combo->popup()->width(), 248);
}

void tst_CustomShadowCombox::opensBelow()
{
    open();
    QCOMPARE(m_combo->popup()->pos(), m_combo->mapToGlobal(QPoint(-4, 48)));
    QCOMPARE(m_combo->popup()->size(), QSize(208, 168));
    QCOMPARE(m_combo->arrow(), kDownArrow);
    QTRY_COMPARE(QApplication::activeWindow(), m_combo->popup());
}

void tst_CustomShadowCombox::opensAbove()
{
    const QRect available = m_window->screen()->availableGeometry();
    m_window->move(100, available.bottom() - 150);
    open();
    QCOMPARE(m_combo->popup()->pos(), m_combo->mapToGlobal(QPoint(-4, -168)));
    QCOMPARE(m_combo->arrow(), kUpArrow);
    // The arrow stays until the list opens again.
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->arrow(), kUpArrow);
    m_window->move(100, 60);
    open();
    QCOMPARE(m_combo->arrow(), kDownArrow);
}

void tst_CustomShadowCombox::opensWhereItJustFits()
{
    const QRect available = m_window->screen()->availableGeometry();
    m_combo->add(3);
    const int bottom = available.top() + available.height();
    // The window lies so that the list would end exactly at the edge, then one pixel further down.
    m_window->move(m_window->pos() + QPoint(0, bottom - 168 - m_combo->mapToGlobal(QPoint(0, 48)).y()));
    open();
    QCOMPARE(m_combo->popup()->geometry().bottom() + 1, bottom);
    QCOMPARE(m_combo->arrow(), kDownArrow);
    m_combo->clickHeader();
    m_window->move(m_window->pos() + QPoint(0, 1));
    open();
    QCOMPARE(m_combo->popup()->y(), m_combo->mapToGlobal(QPoint(0, 0)).y() - 168);
    QCOMPARE(m_combo->arrow(), kUpArrow);
}

void tst_CustomShadowCombox::smallStyleOpens()
{
    delete m_combo;
    m_combo = new Combo(true, m_window.get());
    m_combo->setGeometry(20, 40, 150, 28);
    m_combo->show();
    for (int row = 0; row < 12; ++row)
        m_combo->addSmallStyleItem(QString::number(row));
    open();
    QCOMPARE(m_combo->popup()->geometry(),
             QRect(m_combo->mapToGlobal(QPoint(-4, 28)), QSize(158, 8 + 280 + 8)));
    QCOMPARE(m_combo->arrow(),
             QStringLiteral("QLabel{background:transparent; "
                            "image:url(:/graffiti/resources/graffiti/fontbox/downarrow.svg);}"));
}

void tst_CustomShadowCombox::opensOnTheScreenOfItsHeader()
{
    // A header outside every screen is measured against the primary one.
    m_window->move(100, -5000);
    open();
    QCOMPARE(m_combo->popup()->pos(), m_combo->mapToGlobal(QPoint(-4, 48)));
    m_combo->clickHeader();
    m_window->move(100, 5000);
    open();
    QCOMPARE(m_combo->popup()->pos(), m_combo->mapToGlobal(QPoint(-4, -168)));
}

void tst_CustomShadowCombox::emptyListDoesNotOpen()
{
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
    m_combo->showPopup(); // what a subclass may do all the same
    QVERIFY(m_combo->isOpen());
}

void tst_CustomShadowCombox::choosingAnotherRow()
{
    SignalLog log(m_combo);
    open();
    m_combo->clickRow(2);
    QTRY_COMPARE(m_combo->currentIndex(), 2);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 2"));
    // The row is current when the signal comes, and the list hides after it.
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(2) open")});
}

void tst_CustomShadowCombox::choosingTheCurrentRow()
{
    m_combo->add(3);
    m_combo->setCurrentIndex(1);
    SignalLog log(m_combo);
    open();
    m_combo->clickRow(1);
    QTRY_VERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(m_combo->currentIndex(), 1);
}

void tst_CustomShadowCombox::choosingAGrayRow()
{
    m_combo->addItem(QStringLiteral("a"), false, false);
    m_combo->addItem(QStringLiteral("b"), true, false);
    m_combo->setCurrentIndex(0);
    SignalLog log(m_combo);
    open();
    m_combo->clickRow(1);
    QTRY_VERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList{QStringLiteral("gray(1) closed")});
    QCOMPARE(m_combo->currentIndex(), 0);
    QCOMPARE(m_combo->headerText(), QStringLiteral("a"));
}

void tst_CustomShadowCombox::draggingOnARow()
{
    SignalLog log(m_combo);
    open();
    const QPoint pos = m_combo->row(1)->mapToGlobal(QPoint(20, 20));
    QCursor::setPos(pos);
    MouseEvents::press(m_combo->row(1), pos);
    MouseEvents::release(m_combo->row(1), pos + QPoint(QApplication::startDragDistance(), 0));
    QVERIFY(m_combo->isOpen());
    QCOMPARE(m_combo->currentIndex(), -1);
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::headerClickCloses()
{
    SignalLog log(m_combo);
    open();
    QTRY_COMPARE(QApplication::activeWindow(), m_combo->popup());
    QCursor::setPos(m_combo->mapToGlobal(QPoint(100, 20)));
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::headerClickClosesAnEmptyList()
{
    open();
    m_combo->clear();
    QVERIFY(m_combo->isOpen());
    SignalLog log(m_combo);
    QCursor::setPos(m_combo->mapToGlobal(QPoint(100, 20)));
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::headerPressIsLeftToTheHeader()
{
    open();
    SignalLog log(m_combo);
    const QPoint pos = m_combo->mapToGlobal(QPoint(100, 20));
    QCursor::setPos(pos);
    MouseEvents::press(m_combo->header(), pos);
    QVERIFY(m_combo->isOpen());
    sendDeactivate(m_combo->popup()); // the press activates the window below
    QVERIFY(m_combo->isOpen());
    MouseEvents::release(m_combo->header(), pos);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::hidePopupReportsAlways()
{
    SignalLog log(m_combo);
    m_combo->hidePopup();
    QCOMPARE(log.take(), kHiddenOnce);
    open();
    m_combo->hidePopup();
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowCombox::outsidePressCloses_data()
{
    QTest::addColumn<QPoint>("pos"); // in the window
    QTest::newRow("above") << QPoint(100, 30);
    QTest::newRow("left") << QPoint(19, 60);
    QTest::newRow("right") << QPoint(220, 60);
    QTest::newRow("beside the list") << QPoint(15, 100);
}

void tst_CustomShadowCombox::outsidePressCloses()
{
    QFETCH(QPoint, pos);
    SignalLog log(m_combo);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        open();
        const QPoint globalPos = m_window->mapToGlobal(pos);
        QCursor::setPos(globalPos);
        MouseEvents::press(m_window.get(), globalPos, button);
        QVERIFY(!m_combo->isOpen());
        QCoreApplication::processEvents();
        QCOMPARE(log.take(), kHiddenOnce);
    }
}

void tst_CustomShadowCombox::pressInsideKeeps_data()
{
    QTest::addColumn<QPoint>("pos"); // in the combo box
    QTest::newRow("header") << QPoint(100, 20);
    QTest::newRow("header's corner") << QPoint(0, 0);
    QTest::newRow("header's other corner") << QPoint(199, 47);
    QTest::newRow("shadow of the list") << QPoint(-4, 48);
    QTest::newRow("list") << QPoint(50, 100);
    QTest::newRow("list's corner") << QPoint(203, 48 + 167);
}

void tst_CustomShadowCombox::pressInsideKeeps()
{
    QFETCH(QPoint, pos);
    SignalLog log(m_combo);
    open();
    const QPoint globalPos = m_combo->mapToGlobal(pos);
    QCursor::setPos(globalPos);
    MouseEvents::press(m_window.get(), globalPos); // where the pointer is counts, not who gets the event
    sendDeactivate(m_combo->popup());
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());

    // A part of the combo box that the header does not cover belongs to it, too.
    m_combo->header()->setFixedSize(50, 20);
    const QPoint besides = m_combo->mapToGlobal(QPoint(150, 40));
    QCursor::setPos(besides);
    MouseEvents::press(m_window.get(), besides);
    QVERIFY(m_combo->isOpen());
}

void tst_CustomShadowCombox::deactivationCloses_data()
{
    QTest::addColumn<bool>("real");
    QTest::newRow("sent") << false;
    QTest::newRow("by another window") << true;
}

void tst_CustomShadowCombox::deactivationCloses()
{
    QFETCH(bool, real);
    SignalLog log(m_combo);
    open();
    QTRY_COMPARE(QApplication::activeWindow(), m_combo->popup());
    QWidget other;
    if (real) {
        other.show();
        other.activateWindow();
    } else {
        sendDeactivate(m_combo->popup());
    }
    QTRY_VERIFY(!m_combo->isOpen());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowCombox::deactivationOfAnotherWindowKeeps()
{
    SignalLog log(m_combo);
    open();
    sendDeactivate(m_window.get());
    sendDeactivate(m_combo);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::anyKeyCloses_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("inList");
    QTest::newRow("Escape") << int(Qt::Key_Escape) << true;
    QTest::newRow("letter") << int(Qt::Key_A) << true;
    QTest::newRow("Shift") << int(Qt::Key_Shift) << true;
    QTest::newRow("Down") << int(Qt::Key_Down) << true;
    QTest::newRow("elsewhere") << int(Qt::Key_A) << false;
}

void tst_CustomShadowCombox::anyKeyCloses()
{
    QFETCH(int, key);
    QFETCH(bool, inList);
    SignalLog log(m_combo);
    open();
    QCursor::setPos(m_combo->mapToGlobal(QPoint(20, 20))); // on the header: does not matter for a key
    QTest::keyPress(inList ? m_combo->popup() : m_window.get(), Qt::Key(key));
    QVERIFY(!m_combo->isOpen());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), kHiddenOnce);
    QTest::keyRelease(m_window.get(), Qt::Key(key));
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::movesOutsideAreReported()
{
    SignalLog log(m_combo);
    open();
    const QPoint outside = m_window->mapToGlobal(QPoint(250, 20));
    QCursor::setPos(outside);
    QCoreApplication::processEvents();
    log.moves.clear();
    MouseEvents::move(m_window.get(), outside);
    QCOMPARE(log.moves, QVector<QPoint>(1, outside));
    MouseEvents::move(m_window.get(), outside);
    QCOMPARE(log.moves, QVector<QPoint>(2, outside));
    MouseEvents::move(m_combo->popup(), outside); // dragged out of the list: once, too
    QCOMPARE(log.moves, QVector<QPoint>(3, outside));
    MouseEvents::move(m_combo->popup(), outside);
    QCOMPARE(log.moves, QVector<QPoint>(4, outside));

    QCursor::setPos(m_combo->popup()->geometry().center());
    QCoreApplication::processEvents();
    log.moves.clear();
    MouseEvents::move(m_window.get(), outside); // where the pointer is counts, not what the event says
    MouseEvents::move(m_combo->popup(), outside);
    QCOMPARE(log.moves, QVector<QPoint>());
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::closedListReportsNothing()
{
    SignalLog log(m_combo);
    m_combo->add(3);
    const QPoint outside = m_window->mapToGlobal(QPoint(250, 20));
    QCursor::setPos(outside);
    MouseEvents::move(m_window.get(), outside);
    MouseEvents::press(m_window.get(), outside);
    QTest::keyClick(m_window.get(), Qt::Key_A);
    sendDeactivate(m_combo->popup());
    m_combo->slotCurrentGrayIndexChanged(1);
    m_combo->slotCurrentIndexChanged(1);
    QCOMPARE(log.take(),
             (QStringList{QStringLiteral("gray(1) closed"), QStringLiteral("current(1) closed")}));
    m_combo->slotHeaderClicked();
    QVERIFY(m_combo->isOpen());
    m_combo->slotHeaderClicked();
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowCombox::eventsAreNeverConsumed()
{
    class Target : public QWidget
    {
    public:
        QVector<QEvent::Type> seen;

    protected:
        bool event(QEvent *event) override
        {
            seen << event->type();
            return QWidget::event(event);
        }
    };
    Target target;
    target.resize(50, 50);
    open();
    QCursor::setPos(m_window->mapToGlobal(QPoint(250, 20)));
    MouseEvents::move(&target, QPoint(10, 10));
    QVERIFY(m_combo->isOpen());
    QTest::keyPress(&target, Qt::Key_A);
    QVERIFY(!m_combo->isOpen());
    open();
    QCursor::setPos(m_window->mapToGlobal(QPoint(250, 20)));
    MouseEvents::press(&target, QPoint(10, 10));
    QVERIFY(!m_combo->isOpen());
    for (const QEvent::Type type : {QEvent::MouseMove, QEvent::KeyPress, QEvent::MouseButtonPress})
        QVERIFY(target.seen.contains(type));
}

void tst_CustomShadowCombox::reopenedByItsOwnReport()
{
    SignalLog log(m_combo);
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, m_combo, &Combo::showPopup);
    open();
    QTest::keyPress(m_combo->popup(), Qt::Key_A);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowCombox::relaysLiveOptions()
{
    SignalLog log(m_combo);
    m_combo->slotAddOneLiveOption();
    m_combo->slotDeleteOneLiveOption(4);
    QCOMPARE(log.take(), (QStringList{QStringLiteral("add closed"), QStringLiteral("delete(4) closed")}));
}

void tst_CustomShadowCombox::rowsChangeWhileOpen()
{
    open();
    m_combo->addItem(QStringLiteral("added"), 16);
    QCOMPARE(m_combo->popup()->height(), 16 + 4 * 48 + 8);
    QTRY_VERIFY(m_combo->row(3)->isVisible() && m_combo->row(3)->y() >= 3 * 48);
    QVector<bool> states(4, false);
    states[3] = true;
    m_combo->setItemGrayState(states);
    SignalLog log(m_combo);
    m_combo->clickRow(3);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList{QStringLiteral("gray(3) closed")});

    open();
    m_combo->clear();
    QVERIFY(m_combo->isOpen());
    QCOMPARE(m_combo->popup()->height(), 24);
    m_combo->add(1);
    QTRY_VERIFY(m_combo->row(0)->isVisible() && m_combo->row(0)->height() == 48);
    m_combo->clickRow(0);
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(0) open")});
}

void tst_CustomShadowCombox::pressOnOneClosesTheOther()
{
    Combo other(m_window.get());
    other.setGeometry(225, 40, 70, 48);
    other.show();
    other.add(2);
    SignalLog log(m_combo);
    SignalLog otherLog(&other);
    open();
    const QPoint onOther = other.mapToGlobal(QPoint(30, 20));
    QCursor::setPos(onOther);
    MouseEvents::press(other.header(), onOther);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
    MouseEvents::release(other.header(), onOther);
    QVERIFY(other.isOpen());
    QVERIFY(!m_combo->isOpen());
    const QPoint onFirst = m_combo->mapToGlobal(QPoint(30, 20));
    QCursor::setPos(onFirst);
    MouseEvents::press(m_combo->header(), onFirst);
    QVERIFY(!other.isOpen());
    MouseEvents::release(m_combo->header(), onFirst);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(otherLog.take(), kHiddenOnce);
}

void tst_CustomShadowCombox::destroyedWhileOpen_data()
{
    QTest::addColumn<bool>("byParent");
    QTest::newRow("by itself") << false;
    QTest::newRow("by its parent") << true;
}

void tst_CustomShadowCombox::destroyedWhileOpen()
{
    QFETCH(bool, byParent);
    open();
    const QPointer<QWidget> popup(m_combo->popup());
    if (byParent)
        m_window.reset();
    else
        delete m_combo;
    QVERIFY(!m_combo);
    QVERIFY(!popup);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_CustomShadowCombox::destroyedInItsSignals_data()
{
    QTest::addColumn<QString>("by");
    for (const char *by : {"row", "gray row", "outside press", "key", "deactivation", "move", "hidePopup"})
        QTest::newRow(by) << QString::fromLatin1(by);
}

void tst_CustomShadowCombox::destroyedInItsSignals()
{
    QFETCH(QString, by);
    m_combo->addItem(QStringLiteral("a"), false, false);
    m_combo->addItem(QStringLiteral("b"), true, false);
    open();
    const QPointer<QWidget> popup(m_combo->popup());
    const auto destroy = [this] {
        delete m_combo.data();
    };
    connect(m_combo, &Combo::currentIndexChanged, this, destroy);
    connect(m_combo, &Combo::currentGrayIndexChanged, this, destroy);
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, this, destroy);
    connect(m_combo, &Combo::signalMouseMoveLeavePopup, this, destroy);
    const QPoint outside(250, 20);
    if (by.endsWith(QLatin1String("row"))) {
        m_combo->clickRow(by.startsWith(QLatin1String("gray")) ? 1 : 0);
    } else if (by == QLatin1String("outside press")) {
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, outside);
    } else if (by == QLatin1String("key")) {
        QTest::keyPress(m_combo->popup()->windowHandle(), Qt::Key_A);
    } else if (by == QLatin1String("deactivation")) {
        sendDeactivate(m_combo->popup());
    } else if (by == QLatin1String("move")) {
        QTest::mouseMove(m_window->windowHandle(), outside);
    } else {
        m_combo->hidePopup();
    }
    QTRY_VERIFY(!m_combo);
    // The list has gone at the latest when the event has been delivered.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!popup);
}

void tst_CustomShadowCombox::clearedInItsSignals_data()
{
    destroyedInItsSignals_data();
}

void tst_CustomShadowCombox::clearedInItsSignals()
{
    QFETCH(QString, by);
    m_combo->addItem(QStringLiteral("a"), false, false);
    m_combo->addItem(QStringLiteral("b"), true, false);
    open();
    for (const auto signal : {&Combo::currentIndexChanged, &Combo::currentGrayIndexChanged})
        connect(m_combo, signal, m_combo, &Combo::clear);
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, m_combo, &Combo::clear);
    connect(m_combo, &Combo::signalMouseMoveLeavePopup, m_combo, &Combo::clear);
    const QPoint outside(250, 20);
    if (by.endsWith(QLatin1String("row"))) {
        m_combo->clickRow(by.startsWith(QLatin1String("gray")) ? 1 : 0);
    } else if (by == QLatin1String("outside press")) {
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, outside);
    } else if (by == QLatin1String("key")) {
        QTest::keyPress(m_combo->popup()->windowHandle(), Qt::Key_A);
    } else if (by == QLatin1String("deactivation")) {
        sendDeactivate(m_combo->popup());
    } else if (by == QLatin1String("move")) {
        QTest::mouseMove(m_window->windowHandle(), outside);
    } else {
        m_combo->hidePopup();
    }
    QTRY_COMPARE(m_combo->count(), 0);
    m_combo->add(2);
    QCOMPARE(m_combo->count(), 2);
    QCOMPARE(m_combo->currentIndex(), by == QLatin1String("row") ? 0 : -1);
}

void tst_CustomShadowCombox::withoutPopupOrHeader()
{
    SignalLog log(m_combo);
    m_combo->add(2);
    delete m_combo->header();
    m_combo->setHeaderStyle(QStringLiteral("QWidget{}"));
    m_combo->setHeaderTextStyle(QStringLiteral("QLabel{}"));
    m_combo->resize(250, 48);
    m_combo->slotCurrentIndexChanged(1);
    m_combo->slotCurrentGrayIndexChanged(1);
    m_combo->showPopup();
    QVERIFY(!m_combo->isOpen());
    {
        const LogCapture lines;
        m_combo->setCurrentIndex(0);
        QCOMPARE(lines.texts(), QStringList{QStringLiteral("AAAAA--setCurrentIndex-- 0")});
    }
    QCOMPARE(m_combo->currentIndex(), -1);
    QCOMPARE(log.take(), QStringList());

    delete m_combo;
    m_combo = new Combo(m_window.get());
    m_combo->add(2);
    m_combo->setCurrentIndex(1);
    delete m_combo->popup();
    const QSignalSpy hidden(m_combo, &Combo::signalPopWidHideWhenClickOtherPos);
    QCOMPARE(m_combo->count(), 0);
    QCOMPARE(m_combo->currentIndex(), -1);
    QVERIFY(!m_combo->itemData(0).isValid());
    m_combo->setItemData(0, 1);
    QVector<bool> states;
    m_combo->setItemGrayState(states);
    m_combo->clear();
    {
        const LogCapture lines;
        m_combo->addItem(QStringLiteral("a"));
        m_combo->setCurrentIndex(0);
        QCOMPARE(lines.texts(), QStringList{QStringLiteral("AAAAA--setCurrentIndex-- 0")});
    }
    m_combo->addItem(QStringLiteral("a"), 1);
    m_combo->addItem(QStringLiteral("a"), true, true);
    m_combo->addItem(QStringLiteral("a"), 1, 1, 1);
    m_combo->addSmallStyleItem(QStringLiteral("a"));
    m_combo->clickHeader();
    m_combo->slotCurrentIndexChanged(0);
    m_combo->slotCurrentGrayIndexChanged(0);
    m_combo->hidePopup();
    m_combo->showPopup();
    m_combo->resize(180, 48);
    QTest::keyClick(m_window.get(), Qt::Key_A);
    QCOMPARE(m_combo->isActive(), m_combo->isActiveWindow());
    QCOMPARE(hidden.count(), 0);
}

void tst_CustomShadowCombox::manyRows()
{
    constexpr int kRows = 5000;
    m_combo->add(kRows);
    m_combo->setCurrentIndex(kRows - 1);
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 4999"));
    open();
    QCOMPARE(m_combo->popup()->height(), 504);
    m_combo->clickRow(3);
    QTRY_COMPARE(m_combo->currentIndex(), 3);
    m_combo->clear();
    QCOMPARE(m_combo->count(), 0);
}

QTEST_MAIN(tst_CustomShadowCombox)

#include "tst_customshadowcombox.moc"
