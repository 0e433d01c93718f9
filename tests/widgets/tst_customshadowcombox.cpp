#include "logcapture.h"
#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtCore/QMetaMethod>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QHBoxLayout>

using namespace ShadowComboTesting;

using Add = std::function<void(CustomShadowCombox *)>;
Q_DECLARE_METATYPE(Add)

/// What the combo box is made of, its rows, and where it opens.
class tst_CustomShadowCombox : public Fixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { makeWindow(); }
    void cleanup() { deleteWindow(); }

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
    void relaysLiveOptions();
    void withoutPopupOrHeader();
    void manyRows();
};

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

void tst_CustomShadowCombox::relaysLiveOptions()
{
    SignalLog log(m_combo);
    m_combo->slotAddOneLiveOption();
    m_combo->slotDeleteOneLiveOption(4);
    QCOMPARE(log.take(), (QStringList{QStringLiteral("add closed"), QStringLiteral("delete(4) closed")}));
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

ORV_TEST_MAIN(tst_CustomShadowCombox)

#include "tst_customshadowcombox.moc"
