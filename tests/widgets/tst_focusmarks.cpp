#include "customizeiconbutton.h"
#include "customshadowcombox.h"
#include "customsliderbarwidget.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "pictures.h"
#include "testmain.h"

#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleOption>

#include <memory>

namespace {

// Draws focus marks as a frame of one unit, and notes for which widgets.
class MarkStyle : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_FrameFocusRect) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        marked << widget;
        isHighlighted = option->state.testFlag(State_KeyboardFocusChange);
        const QRect rect = option->rect;
        painter->fillRect(rect.left(), rect.top(), rect.width(), 1, Qt::red);
        painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, Qt::red);
        painter->fillRect(rect.left(), rect.top(), 1, rect.height(), Qt::red);
        painter->fillRect(rect.right(), rect.top(), 1, rect.height(), Qt::red);
    }

    mutable QVector<const QWidget *> marked;
    mutable bool isHighlighted = false;
};

using Maker = QWidget *(*)(QWidget *parent);

template<typename Control>
QWidget *make(QWidget *parent)
{
    return new Control(parent);
}

QWidget *makeButtonOfOneIcon(QWidget *parent)
{
    auto *button = new CustomizeIconButton(QSize(24, 24), QString(), 0, parent, false);
    QImage opaque(24, 24, QImage::Format_RGB32);
    opaque.fill(Qt::blue);
    const QString icon = savedImage(opaque, QStringLiteral("opaque.png"));
    button->setIconImage(icon, icon, icon, icon);
    button->setFixedSize(24, 24);
    return button;
}

// Sheets that select on every widget reach the mark, too.
QWidget *makeStyledButton(QWidget *parent)
{
    auto *button = new CustomizeIconButton(parent);
    const QString sheet = QStringLiteral("QWidget{background:#00FF00; border:2px solid #00FF00;}");
    button->setOveralStyle(sheet, sheet, sheet, sheet);
    button->setFixedSize(40, 24);
    return button;
}

QWidget *makeComboWithHeaderSheet(QWidget *parent)
{
    auto *combo = new CustomShadowCombox(parent);
    combo->setHeaderStyle(QStringLiteral("QWidget#%1{background:#FFFFFF; border:1px solid #CCCCCC;}"));
    combo->setFixedSize(200, 48);
    return combo;
}

} // namespace
Q_DECLARE_METATYPE(Maker)
Q_DECLARE_METATYPE(Qt::FocusReason)

/// The mark of a control that has the focus from the keyboard.
class tst_FocusMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void shownForTheKeyboardAlone_data();
    void shownForTheKeyboardAlone();
    void comesBackWithTheWindow();
    void comesBackOnlyIfItWasThere();
    void nothingWithoutAFocusPolicy();
    void paintedInsideEveryControl_data();
    void paintedInsideEveryControl();
    void followsTheSize();
    void liesOverWhatCameLater();
    void sharpWherever_data();
    void sharpWherever();
    void leavesNoTrace();
    void drawnByTheControlsOwnStyle();
    void outlinedByAStyleSheet();

private:
    template<typename Control>
    Control *add();
    bool isMarked(QWidget *control);

    MarkStyle *m_style = nullptr;
    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_other = nullptr;
};

void tst_FocusMarks::init()
{
    m_style = new MarkStyle;
    QApplication::setStyle(m_style); // takes the style
    m_window = std::make_unique<QWidget>();
    m_window->resize(400, 200);
    m_other = new QLineEdit(m_window.get());
    m_other->move(200, 150);
}

void tst_FocusMarks::cleanup()
{
    m_window.reset();
}

template<typename Control>
Control *tst_FocusMarks::add()
{
    auto *control = new Control(m_window.get());
    control->setFocusPolicy(Qt::StrongFocus);
    control->move(20, 20);
    m_window->show();
    m_window->activateWindow();
    [&] {
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }();
    m_other->setFocus(Qt::OtherFocusReason);
    return control;
}

bool tst_FocusMarks::isMarked(QWidget *control)
{
    m_style->marked.clear();
    control->grab();
    return m_style->marked.contains(control);
}

void tst_FocusMarks::shownForTheKeyboardAlone_data()
{
    QTest::addColumn<Qt::FocusReason>("reason");
    QTest::addColumn<bool>("isKeyboard");
    QTest::newRow("Tab") << Qt::TabFocusReason << true;
    QTest::newRow("Backtab") << Qt::BacktabFocusReason << true;
    QTest::newRow("shortcut") << Qt::ShortcutFocusReason << true;
    QTest::newRow("mouse") << Qt::MouseFocusReason << false;
    QTest::newRow("other") << Qt::OtherFocusReason << false;
    QTest::newRow("window") << Qt::ActiveWindowFocusReason << false;
    QTest::newRow("popup") << Qt::PopupFocusReason << false;
}

void tst_FocusMarks::shownForTheKeyboardAlone()
{
    QFETCH(Qt::FocusReason, reason);
    QFETCH(bool, isKeyboard);

    auto *slider = add<HorizontalSlider>();
    slider->setFocus(reason);
    QVERIFY(slider->hasFocus());
    QCOMPARE(isMarked(slider), isKeyboard);
    QCOMPARE(m_style->isHighlighted, isKeyboard);
    QCOMPARE(QAccessible::queryAccessibleInterface(slider)->childCount(), 0); // the mark is nobody's business
    m_other->setFocus(Qt::OtherFocusReason);
    QVERIFY(!isMarked(slider));
}

void tst_FocusMarks::comesBackWithTheWindow()
{
    auto *slider = add<HorizontalSlider>();
    slider->setFocus(Qt::TabFocusReason);
    QWidget another;
    another.show();
    another.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&another));
    QTRY_VERIFY(!slider->hasFocus());
    QVERIFY(!isMarked(slider));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_VERIFY(slider->hasFocus());
    QVERIFY(isMarked(slider));
}

void tst_FocusMarks::comesBackOnlyIfItWasThere()
{
    auto *slider = add<HorizontalSlider>();
    slider->setFocus(Qt::TabFocusReason);
    m_other->setFocus(Qt::MouseFocusReason);
    slider->setFocus(Qt::ActiveWindowFocusReason);
    QVERIFY(!isMarked(slider));
}

void tst_FocusMarks::nothingWithoutAFocusPolicy()
{
    auto *slider = add<HorizontalSlider>();
    slider->setFocusPolicy(Qt::NoFocus);
    slider->setFocus(Qt::TabFocusReason);
    QVERIFY(slider->hasFocus());
    QVERIFY(!isMarked(slider));
}

void tst_FocusMarks::paintedInsideEveryControl_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::newRow("HorizontalSlider") << Maker(make<HorizontalSlider>);
    QTest::newRow("NewHorizontalSlider") << Maker(make<NewHorizontalSlider>);
    QTest::newRow("CustomSliderBarWidget") << Maker(make<CustomSliderBarWidget>);
    QTest::newRow("CustomizeIconButton") << Maker(makeButtonOfOneIcon);
    QTest::newRow("styled CustomizeIconButton") << Maker(makeStyledButton);
    QTest::newRow("CustomShadowCombox") << Maker(makeComboWithHeaderSheet);
}

void tst_FocusMarks::paintedInsideEveryControl()
{
    QFETCH(Maker, maker);

    QWidget *control = maker(m_window.get());
    control->setFocusPolicy(Qt::TabFocus);
    control->move(20, 20);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_other->setFocus(Qt::OtherFocusReason);
    const QImage before = m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    control->setFocus(Qt::TabFocusReason);
    m_other->clearFocus();
    QVERIFY(isMarked(control));
    QImage after = m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);

    // All along the edge the mark, within it the control as it was, and outside nothing.
    const qreal ratio = m_window->devicePixelRatioF();
    const QRect pixels =
        QRectF(QPointF(control->pos()) * ratio, QSizeF(control->size()) * ratio).toAlignedRect();
    const int width = int(ratio);
    const QRect inner = pixels.adjusted(width + 1, width + 1, -width - 1, -width - 1);
    QCOMPARE(differingPixels(after.copy(inner), before.copy(inner)), 0);
    for (int x = pixels.left() + 2; x < pixels.right() - 2; ++x) {
        QCOMPARE(after.pixelColor(x, pixels.top() + width / 2), QColor(Qt::red));
        QVERIFY(after.pixelColor(x, pixels.bottom()) == QColor(Qt::red) ||
                after.pixelColor(x, pixels.bottom() - 1) == QColor(Qt::red));
    }
    QPainter eraser(&after);
    QPainter eraserBefore(const_cast<QImage *>(&before));
    for (QPainter *painter : {&eraser, &eraserBefore}) {
        painter->scale(1 / after.devicePixelRatio(), 1 / after.devicePixelRatio());
        painter->fillRect(pixels, Qt::black);
        const QRect edit(QPointF(QPointF(m_other->pos()) * ratio).toPoint(), m_other->size() * ratio);
        painter->fillRect(edit.adjusted(-2, -2, 2, 2), Qt::black); // which has lost the focus
        painter->end();
    }
    QCOMPARE(differingPixels(after, before), 0);
}

void tst_FocusMarks::followsTheSize()
{
    auto *combo = add<CustomShadowCombox>();
    combo->resize(100, 40);
    combo->setFocus(Qt::BacktabFocusReason);
    combo->resize(180, 60);
    const QImage picture = combo->grab().toImage();
    QCOMPARE(picture.pixelColor(picture.width() - 1, picture.height() / 2), QColor(Qt::red));
    QCOMPARE(picture.pixelColor(picture.width() / 2, picture.height() - 1), QColor(Qt::red));
}

void tst_FocusMarks::liesOverWhatCameLater()
{
    auto *combo = add<CustomShadowCombox>();
    combo->resize(100, 40);
    combo->setFocus(Qt::TabFocusReason);
    m_other->setFocus(Qt::TabFocusReason);
    QWidget later(combo);
    later.setAutoFillBackground(true);
    later.resize(combo->size());
    later.show();
    combo->setFocus(Qt::BacktabFocusReason);
    const QImage picture = combo->grab().toImage();
    QCOMPARE(picture.pixelColor(picture.width() - 1, picture.height() / 2), QColor(Qt::red));
}

void tst_FocusMarks::sharpWherever_data()
{
    QTest::addColumn<QPoint>("pos");
    for (int x = 0; x < 4; ++x)
        QTest::addRow("at %d", x) << QPoint(20 + x, 23 - x);
}

void tst_FocusMarks::sharpWherever()
{
    QFETCH(QPoint, pos);

    auto *slider = add<NewHorizontalSlider>();
    slider->setSkinPath(QStringLiteral(":/none/"));
    slider->move(pos);
    slider->setFocus(Qt::TabFocusReason);
    m_window->setStyleSheet(QString());
    m_window->setPalette(Qt::white);
    const QImage picture = m_window->grab().toImage().copy(
        QRect(0, 0, int(240 * m_window->devicePixelRatioF()), int(50 * m_window->devicePixelRatioF())));
    const QRgb ground = picture.pixel(0, 0);
    int marked = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            QVERIFY2(pixel == ground || pixel == QColor(Qt::red).rgb(),
                     qPrintable(QStringLiteral("%1, %2: %3").arg(x).arg(y).arg(pixel, 0, 16)));
            marked += int(pixel != ground);
        }
    }
    QVERIFY(marked > 0);
}

void tst_FocusMarks::leavesNoTrace()
{
    auto *slider = add<HorizontalSlider>();
    const QImage before = slider->grab().toImage();
    slider->setFocus(Qt::TabFocusReason);
    QVERIFY(differingPixels(slider->grab().toImage(), before) > 0);
    m_other->setFocus(Qt::TabFocusReason);
    QCOMPARE(differingPixels(slider->grab().toImage(), before), 0);
}

void tst_FocusMarks::drawnByTheControlsOwnStyle()
{
    MarkStyle own;
    auto *slider = add<HorizontalSlider>();
    slider->setStyle(&own);
    slider->setFocus(Qt::TabFocusReason);
    QVERIFY(!isMarked(slider));
    QVERIFY(own.marked.contains(slider));
    slider->setStyle(nullptr);
}

void tst_FocusMarks::outlinedByAStyleSheet()
{
    auto *slider = add<NewHorizontalSlider>();
    slider->setSkinPath(QStringLiteral(":/none/"));
    slider->setStyleSheet(QStringLiteral("NewHorizontalSlider:focus { outline: 2px solid #00FF00; }"));
    slider->setFocus(Qt::TabFocusReason);
    QVERIFY(!isMarked(slider));
    const QImage picture = slider->grab().toImage();
    QCOMPARE(picture.pixelColor(picture.width() / 2, 0), QColor(Qt::green));
}

ORV_TEST_MAIN(tst_FocusMarks)
#include "tst_focusmarks.moc"
