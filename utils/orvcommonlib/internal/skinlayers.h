#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QImage>

class QPainter;
class QSvgRenderer;
class QTransform;

/// A piece of a skin at one place of a canvas, taken apart into images: one for each time that painting its
/// shapes lays colour down.
///
/// Drawing them one upon the other gives the very pixels that painting the shapes gives, at a fraction of the
/// cost. A single image would not: where two translucent edges meet, of a disc and its outline for instance,
/// it makes a difference to blend them with each other before they are blended with what lies below.
class SkinLayers
{
public:
    /// Whether layers can stand for shapes under this painter: on the usual images, without anything that a
    /// client's own painter may bring along.
    static bool suit(const QPainter &painter);

    /// No layers.
    SkinLayers() = default;
    /// The layers of the document as it is painted into `target` by a painter that has this device transform.
    SkinLayers(QSvgRenderer *svg, const QRectF &target, const QTransform &deviceTransform);

    /// False if the document paints something that layers cannot stand for: text, pictures, gradients, large
    /// shapes.
    bool areComplete() const { return m_complete; }
    int bytes() const;
    /// Draws the layers with a painter that they suit and whose device transform is the one that they were
    /// made for.
    void paint(QPainter *painter) const;

private:
    friend class LayerEngine;

    struct Layer
    {
        QPoint position; // in pixels of the canvas
        QImage image;
    };

    QVector<Layer> m_layers;
    bool m_complete = false;
};
