#include "framelesshelper.h"
#include "gallerystyle.h"
#include "pagebuilder.h"
#include "samplewindow.h"

#include <QtGui/QPainter>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

constexpr unsigned int kDefaultBorderWidth = 5;
constexpr unsigned int kDefaultTitleHeight = 50;
constexpr unsigned int kDefaultExtraPixels = 10;

constexpr QSize kSampleSize(420, 260);
constexpr QSize kSampleMinimumSize(260, 140);

/// A window in outline, with the areas in which a press means something, one pixel for one pixel.
class AreaPicture : public QWidget
{
public:
    AreaPicture(const FramelessHelper *helper, QWidget *parent)
        : QWidget(parent)
        , m_helper(helper)
    {
        setFixedHeight(180);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const int border = static_cast<int>(m_helper->borderWidth());
        const int title = static_cast<int>(m_helper->titleHeight());
        const int corner = border + (m_helper->enableRightBottomAreaResizeState()
                                         ? static_cast<int>(m_helper->rightBottomAreaExtraPix())
                                         : 0);
        const QRect window = rect();
        painter.fillRect(window, galleryColor("paper"));
        painter.fillRect(QRect(window.topLeft(), QSize(width(), title)), galleryColor("tint"));
        fillEdges(painter, window, border);
        for (const QPoint &point : {window.topLeft(), window.topRight() - QPoint(border - 1, 0),
                                    window.bottomLeft() - QPoint(0, border - 1)})
            painter.fillRect(QRect(point, QSize(border, border)), galleryColor("primary"));
        painter.fillRect(QRect(window.bottomRight() - QPoint(corner - 1, corner - 1), QSize(corner, corner)),
                         galleryColor("primary"));
        drawTexts(painter, window, title);
    }

private:
    static void fillEdges(QPainter &painter, const QRect &window, int border)
    {
        const QColor color = galleryColor("glow");
        painter.fillRect(QRect(window.left(), window.top(), window.width(), border), color);
        painter.fillRect(QRect(window.left(), window.bottom() - border + 1, window.width(), border), color);
        painter.fillRect(QRect(window.left(), window.top(), border, window.height()), color);
        painter.fillRect(QRect(window.right() - border + 1, window.top(), border, window.height()), color);
    }

    static void drawTexts(QPainter &painter, const QRect &window, int title)
    {
        painter.setPen(galleryColor("soft"));
        painter.drawText(QRect(window.left(), window.top(), window.width(), title), Qt::AlignCenter,
                         QStringLiteral("a press here moves the window"));
        painter.drawText(window.adjusted(0, title, 0, 0), Qt::AlignCenter,
                         QStringLiteral("a press on an edge or a corner resizes it"));
    }

    const FramelessHelper *m_helper;
};

QWidget *openSample(FramelessHelper *helper, QWidget *mainWindow)
{
    auto *sample = new QWidget(mainWindow, Qt::Window | Qt::FramelessWindowHint);
    sample->setAttribute(Qt::WA_DeleteOnClose);
    sample->resize(kSampleSize);
    sample->setMinimumSize(kSampleMinimumSize);
    fillSampleWindow(
        sample, QStringLiteral("A plain QWidget"),
        QStringLiteral("It has no native frame. The helper watches it: drag it by its upper part, resize "
                       "it by its edges and corners."));
    helper->activateOn(sample);
    placeOver(sample, mainWindow);
    sample->show();
    return sample;
}

void addSharedSettings(PageBuilder &page, FramelessHelper *helper)
{
    page.section(
        "Where a press counts",
        "These four values are shared by all helpers of the process: this window follows them, too.");
    auto *picture = new AreaPicture(helper, page.widget());
    page.wideExample(picture);
    auto apply = [picture](auto setter) {
        return [picture, setter](auto value) {
            setter(value);
            picture->update();
        };
    };
    QSpinBox *border = page.spinBox("Border width", 1, 30, kDefaultBorderWidth, apply([helper](int width) {
                                        helper->setBorderWidth(static_cast<unsigned int>(width));
                                    }));
    QSpinBox *title = page.spinBox("Title height", 1, 120, kDefaultTitleHeight, apply([helper](int height) {
                                       helper->setTitleHeight(static_cast<unsigned int>(height));
                                   }));
    QCheckBox *enlarge = page.checkBox(
        "Enlarged corner", false, apply([helper](bool on) { helper->setEnabelRightBottomAreaResize(on); }));
    QSpinBox *extra = page.spinBox("Extra pixels", 1, 60, kDefaultExtraPixels, apply([helper](int pixels) {
                                       helper->setRightBottomAreaExtraPix(static_cast<unsigned int>(pixels));
                                   }));
    page.button("Back to the defaults", [border, title, enlarge, extra] {
        border->setValue(kDefaultBorderWidth);
        title->setValue(kDefaultTitleHeight);
        enlarge->setChecked(false);
        extra->setValue(kDefaultExtraPixels);
    });
}

void addOwnSettings(PageBuilder &page, FramelessHelper *helper)
{
    page.section("One helper and its windows",
                 "These are the helper's own, and hold for every window that it watches.");
    page.checkBox("Movable", true, [helper](bool on) { helper->setWidgetMovable(on); });
    page.checkBox("Resizable", true, [helper](bool on) { helper->setWidgetResizable(on); });
    page.checkBox("By the desktop", false, [helper](bool on) { helper->setSystemMoveResize(on); });
    page.checkBox("Move a band", false, [helper](bool on) { helper->setRubberBandOnMove(on); });
    page.checkBox("Resize a band", false, [helper](bool on) { helper->setRubberBandOnResize(on); });
    QCheckBox *left = page.checkBox("Left edge", true);
    QCheckBox *top = page.checkBox("Top edge", true);
    QCheckBox *right = page.checkBox("Right edge", true);
    QCheckBox *bottom = page.checkBox("Bottom edge", true);
    for (QCheckBox *box : {left, top, right, bottom}) {
        QObject::connect(box, &QCheckBox::toggled, helper, [helper, left, top, right, bottom] {
            helper->setDragDirection(left->isChecked(), top->isChecked(), right->isChecked(),
                                     bottom->isChecked());
        });
    }
    QWidget *mainWindow = page.window();
    page.primaryButton("Open a window", [helper, mainWindow] {
        openSample(helper, mainWindow);
        report("a window is open");
    });
    page.shot("dialog-framelesshelper", [helper, mainWindow] { return openSample(helper, mainWindow); });
}

void build(PageBuilder &page)
{
    page.include("framelesshelper.h");
    auto *helper = new FramelessHelper(page.widget());
    addOwnSettings(page, helper);
    addSharedSettings(page, helper);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::WindowFrame, "FramelessHelper",
    "Lets the user move and resize windows that have no native frame. This window is one of them.", build);

} // namespace
