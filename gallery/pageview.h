#pragma once

#include "pagebuilder.h"

#include <QtWidgets/QScrollArea>

class GalleryPage;

/// One page as the user sees it: heading, sentence and cards in a scroll area.
class PageView : public QScrollArea
{
    Q_OBJECT

public:
    /// Builds the page at once. `window` is the gallery's main window.
    PageView(const GalleryPage &page, QWidget *window, QWidget *parent = nullptr);

    const QVector<PageShot> &shots() const { return m_shots; }
    /// How much taller the view had to be to show the page without scrolling.
    int missingHeight() const;

private:
    QVector<PageShot> m_shots;
};
