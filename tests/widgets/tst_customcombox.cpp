#include "customcombox.h"
#include "testmain.h"

#include <QtCore/QTimer>
#include <QtGui/QContextMenuEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProxyStyle>

namespace {

// Notes what reaches the combo box's own press handler, and shows what subclasses may see.
class RecordingCombo : public customcombox
{
public:
    explicit RecordingCombo(QWidget *parent = nullptr)
        : customcombox(parent)
    {
    }

    using customcombox::eventFilter;
    using customcombox::hidePopup;
    using customcombox::showPopup;
    using customcombox::spacingBetweenComboxAndPopupWidget;

    QVector<QPoint> presses;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        presses << event->pos();
        customcombox::mousePressEvent(event);
    }
};

// The arrow of an editable combo box stands elsewhere.
class ArrowStyle : public QProxyStyle
{
public:
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override
    {
        const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
        const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
        return combo && combo->editable && part == SC_ComboBoxArrow ? rect.translated(-40, 0) : rect;
    }
};

QTimer *guardTimer(const customcombox &combo)
{
    const auto timers = combo.findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTimer *timer : timers) {
        if (timer->isSingleShot() && timer->interval() == 100)
            return timer;
    }
    return nullptr;
}

// Ends the guard's wait without waiting.
void elapse(const customcombox &combo)
{
    guardTimer(combo)->stop();
}

} // namespace

class tst_customcombox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void construction();
    void setters();
    void leftPressOnTheLineEditOpensTheList();
    void pressIsTurnedIntoOneOnTheArrow();
    void leftPressAndReleaseArePassedOn();
    void guardKeepsTheListClosed();
    void secondOfTwoQuickClicksOpensTheList();
    void openingStartsTheGuard();
    void otherButtonsAreConsumed_data();
    void otherButtonsAreConsumed();
    void contextMenuIsConsumed();
    void disabledComboIgnoresPresses();
    void startOfALongTextStaysInView();
    void worksWithoutALineEdit();
    void lineEditCanBeReplaced();
    void destroyedWhileItsListIsOpen();

private:
    RecordingCombo *m_combo = nullptr;
};

void tst_customcombox::init()
{
    m_combo = new RecordingCombo;
    m_combo->addItems({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    m_combo->resize(200, 30);
    m_combo->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_combo));
}

void tst_customcombox::cleanup()
{
    delete m_combo;
    m_combo = nullptr;
}

void tst_customcombox::construction()
{
    QVERIFY(m_combo->isEditable());
    QVERIFY(m_combo->lineEdit()->isReadOnly());
    QCOMPARE(m_combo->lineEdit()->contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(m_combo->view()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(guardTimer(*m_combo));
    QVERIFY(!guardTimer(*m_combo)->isActive());
    QCOMPARE(m_combo->spacingBetweenComboxAndPopupWidget(), 4);
}

void tst_customcombox::setters()
{
    m_combo->setVisableCount(5);
    QCOMPARE(m_combo->maxVisibleItems(), 5);
    m_combo->setLineEditWidth(77);
    QCOMPARE(m_combo->lineEdit()->minimumWidth(), 77);
    QCOMPARE(m_combo->lineEdit()->maximumWidth(), 77);
    m_combo->setSpacingBetweenComboxAndPopupWidget(9);
    QCOMPARE(m_combo->spacingBetweenComboxAndPopupWidget(), 9);
}

void tst_customcombox::leftPressOnTheLineEditOpensTheList()
{
    QTest::mousePress(m_combo->lineEdit(), Qt::LeftButton);
    QVERIFY(m_combo->view()->isVisible());
}

void tst_customcombox::pressIsTurnedIntoOneOnTheArrow()
{
    auto *style = new ArrowStyle;
    style->setParent(m_combo);
    m_combo->setStyle(style);
    QStyleOptionComboBox option;
    option.initFrom(m_combo);
    option.editable = true;
    option.frame = true;
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_ComboBoxArrow;
    option.currentText = m_combo->currentText();
    const QRect arrow =
        m_combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, m_combo);
    QTest::mousePress(m_combo->lineEdit(), Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    QVERIFY(!m_combo->presses.isEmpty());
    QCOMPARE(m_combo->presses.first(), QPoint(arrow.x() + arrow.width() / 2, arrow.y() + arrow.height() / 2));
}

void tst_customcombox::leftPressAndReleaseArePassedOn()
{
    QLineEdit *edit = m_combo->lineEdit();
    const QPoint globalPos = edit->mapToGlobal(QPoint(3, 3));
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(3, 3), globalPos, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QVERIFY(!m_combo->eventFilter(edit, &press));
    QCOMPARE(press.pos(), m_combo->presses.first()); // moved to the arrow
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(3, 3), globalPos, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QVERIFY(!m_combo->eventFilter(edit, &release));
}

void tst_customcombox::guardKeepsTheListClosed()
{
    m_combo->showPopup();
    elapse(*m_combo);
    m_combo->hidePopup();
    QVERIFY(guardTimer(*m_combo)->isActive());
    m_combo->presses.clear();
    QTest::mousePress(m_combo->lineEdit(), Qt::LeftButton);
    QVERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_combo->presses.count(), 0);

    elapse(*m_combo);
    QTest::mousePress(m_combo->lineEdit(), Qt::LeftButton);
    QVERIFY(m_combo->view()->isVisible());
}

// The first click closes the list, the second one comes when the guard has ended and opens it again.
void tst_customcombox::secondOfTwoQuickClicksOpensTheList()
{
    QLineEdit *edit = m_combo->lineEdit();
    m_combo->showPopup();
    m_combo->hidePopup();
    m_combo->presses.clear();
    QTest::mouseDClick(edit, Qt::LeftButton); // while the guard is on
    QVERIFY(!m_combo->view()->isVisible());

    elapse(*m_combo);
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(3, 3), edit->mapToGlobal(QPoint(3, 3)),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(edit, &second);
    QVERIFY(m_combo->view()->isVisible());
    QVERIFY(guardTimer(*m_combo)->isActive());
}

void tst_customcombox::openingStartsTheGuard()
{
    m_combo->showPopup();
    QVERIFY(guardTimer(*m_combo)->isActive());
    m_combo->presses.clear();
    QTest::mousePress(m_combo->lineEdit(), Qt::LeftButton);
    QCOMPARE(m_combo->presses.count(), 0);
    QTRY_VERIFY(!guardTimer(*m_combo)->isActive());
}

void tst_customcombox::otherButtonsAreConsumed_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void tst_customcombox::otherButtonsAreConsumed()
{
    QFETCH(int, button);
    QLineEdit *edit = m_combo->lineEdit();
    const QSignalSpy changed(m_combo, &QComboBox::currentTextChanged);
    for (const QEvent::Type type :
         {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, QPointF(3, 3), edit->mapToGlobal(QPoint(3, 3)), Qt::MouseButton(button),
                          Qt::MouseButton(button), Qt::NoModifier);
        QVERIFY(m_combo->eventFilter(edit, &event));
    }
    QVERIFY(m_combo->presses.isEmpty());
    QVERIFY(!m_combo->view()->isVisible());
    QCOMPARE(changed.count(), 0);
}

void tst_customcombox::contextMenuIsConsumed()
{
    QLineEdit *edit = m_combo->lineEdit();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3), edit->mapToGlobal(QPoint(3, 3)));
    QVERIFY(QCoreApplication::sendEvent(edit, &event));
    QVERIFY(m_combo->findChildren<QMenu *>().isEmpty());
}

void tst_customcombox::disabledComboIgnoresPresses()
{
    m_combo->setEnabled(false);
    QLineEdit *edit = m_combo->lineEdit();
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(3, 3), edit->mapToGlobal(QPoint(3, 3)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(!m_combo->eventFilter(edit, &event));
    QVERIFY(m_combo->presses.isEmpty());
    QVERIFY(!m_combo->view()->isVisible());
}

void tst_customcombox::startOfALongTextStaysInView()
{
    QLineEdit *edit = m_combo->lineEdit();
    m_combo->addItem(QString(300, QLatin1Char('m')));
    m_combo->setCurrentIndex(3);
    edit->end(false);
    QTest::mouseMove(edit, QPoint(5, 5));
    QCoreApplication::processEvents();
    QTest::keyClick(edit, Qt::Key_Shift);
    QCOMPARE(edit->cursorPosition(), 0);
}

void tst_customcombox::worksWithoutALineEdit()
{
    m_combo->setEditable(false);
    QVERIFY(!m_combo->lineEdit());
    m_combo->setLineEditWidth(50);
    QCOMPARE(m_combo->lineEditWidth(), 0);
    m_combo->repaint();
    QTest::mousePress(m_combo, Qt::LeftButton);
    QVERIFY(m_combo->view()->isVisible());
}

// The old one sends events while it is being destroyed, and is none of the combo box's any more.
void tst_customcombox::lineEditCanBeReplaced()
{
    QLineEdit *old = m_combo->lineEdit();
    old->setFocus();
    auto *own = new QLineEdit;
    m_combo->setLineEdit(own);
    QCOMPARE(m_combo->lineEdit(), own);
    QCOMPARE(own->text(), QStringLiteral("first"));
    QCoreApplication::processEvents();
    m_combo->setEditable(false);
    m_combo->setEditable(true);
    m_combo->setCurrentIndex(2);
    QCOMPARE(m_combo->lineEdit()->text(), QStringLiteral("third"));
}

void tst_customcombox::destroyedWhileItsListIsOpen()
{
    m_combo->showPopup();
    delete m_combo;
    m_combo = nullptr;
    QCoreApplication::processEvents();
}

ORV_TEST_MAIN(tst_customcombox)

#include "tst_customcombox.moc"
