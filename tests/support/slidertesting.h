#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

/// What the tests of the sliders share: painting step by step as the documentation puts it, with nothing kept
/// from one paint to the next; the search for a value as a plain loop; skins in a temporary folder; mouse
/// events.
namespace SliderTesting {

/// By how many levels of a channel a painted skin may differ from the plain recipe: what rounding makes of drawing
/// an image instead of the shapes that it shows.
constexpr int kOfOpaque = 1;
constexpr int kOfTranslucent = 2;

/// Sends one mouse event past the pointer, with the buttons as they are after it. True if it was accepted.
inline bool sendMouse(QWidget *widget, QEvent::Type type, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    const bool isMove = type == QEvent::MouseMove;
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), isMove ? Qt::NoButton : button, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

inline bool press(QWidget *widget, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseButtonPress, pos, button);
}

inline bool move(QWidget *widget, QPoint pos)
{
    return sendMouse(widget, QEvent::MouseMove, pos);
}

inline bool release(QWidget *widget, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    return sendMouse(widget, QEvent::MouseButtonRelease, pos, button);
}

inline void click(QWidget *widget, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    press(widget, pos, button);
    release(widget, pos, button);
}

/// A picture to paint into, at the ratio that the test runs at.
inline QImage canvas(const QWidget &widget, const QColor &ground)
{
    const qreal ratio = widget.devicePixelRatioF();
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    return image;
}

inline QImage painted(QWidget *widget, const QColor &ground = Qt::transparent)
{
    QImage image = canvas(*widget, ground);
    if (!image.isNull())
        widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// Counts paints.
template<typename Base>
class PaintCounting : public Base
{
public:
    using Base::Base;

    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        Base::paintEvent(event);
    }
};

/// Shows a widget, by itself or in a window, and waits until it has nothing left to paint.
template<typename Widget>
bool showPainted(Widget *widget, QWidget *window)
{
    window->show();
    const bool shown =
        QTest::qWaitForWindowExposed(window) && QTest::qWaitFor([widget] { return widget->paints > 0; });
    QCoreApplication::processEvents();
    return shown;
}

template<typename Widget>
bool showPainted(Widget *widget)
{
    return showPainted(widget, widget);
}

/// True if the action makes a widget that is shown paint itself again.
template<typename Widget, typename Action>
bool paintsAfter(Widget *widget, Action action)
{
    QCoreApplication::processEvents();
    const int before = widget->paints;
    action();
    return QTest::qWaitFor([widget, before] { return widget->paints > before; });
}

/// A skin of its own, in part translucent, in colours and shapes that no embedded one has.
class SkinFolder
{
public:
    SkinFolder()
    {
        write("groove.svg", "<rect width='206' height='10' rx='5' fill='#80c0ff'/>", 206, 10);
        write("groove_disabled.svg", "<rect width='206' height='10' fill='#c0c0c0' opacity='0.7'/>", 206, 10);
        write("groove_bidirection.svg", "<rect y='3' width='206' height='4' fill='#20c040'/>", 206, 10);
        write("groove_bidirection_disabled.svg", "<rect y='4' width='206' height='2' fill='#707070'/>", 206,
              10);
        const char handle[] =
            "<circle cx='7' cy='7' r='6' fill='#fff0e0' stroke='#402010' stroke-width='2'/>";
        write("handle.svg", handle, 14, 14);
        write("handle_disabled.svg", "<circle cx='7' cy='7' r='5' fill='#a0a0a0' opacity='0.5'/>", 14, 14);
        write("zero.svg", "<circle cx='2' cy='2' r='2' fill='#ff00ff'/>", 4, 4);
    }

    QString path() const { return m_folder.path() + QLatin1Char('/'); }

    void write(const char *name, const char *shapes, int width, int height)
    {
        const QString head =
            QStringLiteral(
                "<svg xmlns='http://www.w3.org/2000/svg' width='%1' height='%2' viewBox='0 0 %1 %2'>")
                .arg(width)
                .arg(height);
        writeRaw(name, head.toLatin1() + shapes + "</svg>");
    }

    void writeRaw(const char *name, const QByteArray &contents)
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write(contents);
    }

    void remove(const char *name) { QFile::remove(m_folder.filePath(QString::fromLatin1(name))); }

private:
    QTemporaryDir m_folder;
};

/// The search for a value, as a loop over the whole range; false if there is none.
inline bool searchValue(double position, int minimum, int maximum, int half, double step, int *value)
{
    for (qint64 i = 0; i < qint64(maximum) - minimum; ++i) {
        const double low = half + step * double(i);
        const double high = half + step * double(i + 1);
        if (low <= position && position <= high) {
            const double d1 = position - low;
            const double d2 = high - position;
            *value = int(minimum + i + (d2 <= d1 ? 1 : 0));
            return true;
        }
    }
    return false;
}

/// Renders a file as anew, if it is there: QSvgRenderer would log a missing one.
inline void renderSvg(QPainter *painter, const QString &file, const QRectF &target)
{
    if (!QFile::exists(file))
        return;
    QSvgRenderer renderer(file);
    renderer.render(painter, target);
}

/// What HorizontalSlider and NewHorizontalSlider paint.
struct SliderPicture
{
    QString skin;
    QSize size;
    bool bidirectional = false;
    int minimum = 0;
    int maximum = 100;
    int value = 0;
    QSize handleSize;
    QColor valueColor;
    // HorizontalSlider
    bool zeroFlag = false;
    int zeroSpacing = 3;
    QSize zeroSize = QSize(4, 4);
    int grooveHeight = 10;
    // NewHorizontalSlider
    bool sliderEnabled = true;
    QColor disabledValueColor = QColor(QStringLiteral("#CCCCCC"));

    static QRectF centered(const QSize &size, double x, double y)
    {
        return {x - size.width() / 2.0, y - size.height() / 2.0, double(size.width()), double(size.height())};
    }

    void paintOld(QPainter *painter, qreal ratio) const
    {
        painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter->setPen(Qt::NoPen);
        const int half = handleSize.width() / 2;
        const int baseHeight = zeroFlag ? handleSize.height() : size.height();
        const int top = (baseHeight - grooveHeight) / 2;
        const QRectF area(0, top, size.width(), grooveHeight);

        QImage image(qRound(size.width() * ratio), qRound(grooveHeight * ratio), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        const double step = (area.width() - handleSize.width()) / double(maximum - minimum);
        const double handle = half + step * (value - minimum);
        const int mid = (maximum + minimum) / 2;
        const double zero = half + step * (mid - minimum);
        {
            QPainter imagePainter(&image);
            renderSvg(&imagePainter, QStringLiteral("%1/groove.svg").arg(skin), image.rect());
            QRectF part(image.rect());
            if (!bidirectional) {
                part.setRight(part.left() + handle * ratio);
            } else if (value >= mid) {
                part.setLeft(zero * ratio);
                part.setRight(handle * ratio);
            } else {
                part.setLeft(handle * ratio);
                part.setRight(zero * ratio);
            }
            imagePainter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
            imagePainter.fillRect(part, valueColor);
        }
        painter->drawImage(area, image);
        renderSvg(painter, QStringLiteral("%1/handle.svg").arg(skin),
                  centered(handleSize, handle, handleSize.height() / 2.0));
        if (zeroFlag)
            renderSvg(painter, QStringLiteral("%1/zero.svg").arg(skin),
                      centered(zeroSize, zero, handleSize.height() + zeroSpacing + zeroSize.height() / 2.0));
    }

    void paintNew(QPainter *painter) const
    {
        painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter->setPen(Qt::NoPen);
        const int half = handleSize.width() / 2;
        const QRectF area(0, 0, size.width(), size.height());
        const QRectF grooveRect = area.adjusted(half, 0, -half, 0);

        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        const double step = grooveRect.width() / double(maximum - minimum);
        const double handle = half + step * (value - minimum);
        const int mid = (maximum + minimum) / 2;
        const double zero = half + step * (mid - minimum);
        {
            QPainter imagePainter(&image);
            const QString groove =
                QLatin1String(bidirectional ? "%1/groove_bidirection%2.svg" : "%1/groove%2.svg");
            renderSvg(&imagePainter, groove.arg(skin, QLatin1String(sliderEnabled ? "" : "_disabled")), area);
            QRectF part(image.rect());
            if (!bidirectional) {
                part.setRight(handle);
            } else if (value >= mid) {
                part.setLeft(zero);
                part.setRight(handle - half);
            } else {
                part.setLeft(handle);
                part.setRight(zero);
            }
            imagePainter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
            imagePainter.fillRect(part, sliderEnabled ? valueColor : disabledValueColor);
        }
        painter->drawImage(area, image);
        renderSvg(painter,
                  QLatin1String(sliderEnabled ? "%1/handle.svg" : "%1/handle_disabled.svg").arg(skin),
                  centered(handleSize, handle, handleSize.height() / 2.0));
    }
};

} // namespace SliderTesting
