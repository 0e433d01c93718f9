#pragma once

#include <QtCore/QSize>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>

/// A device that draws nothing: its subclasses note how they are painted on.
class NotingDevice
    : public QPaintDevice
    , protected QPaintEngine
{
public:
    explicit NotingDevice(QSize size)
        : QPaintEngine(QPaintEngine::AllFeatures)
        , m_size(size)
    {
    }

    QPaintEngine *paintEngine() const override { return const_cast<NotingDevice *>(this); }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        case PdmDepth:
            return 32;
        default:
            return 96; // dots per inch
        }
    }

    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState & /*changed*/) override {}
    void drawPixmap(const QRectF & /*target*/, const QPixmap & /*pixmap*/, const QRectF & /*source*/) override
    {
    }

private:
    QSize m_size;
};
