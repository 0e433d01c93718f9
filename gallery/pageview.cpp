#include "pageview.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kMaximumWidth = 1040;
constexpr int kPageMargin = 24;
constexpr int kPageSpacing = 14;
constexpr int kSentenceGap = 4;

QWidget *newHeading(const GalleryPage &page, QWidget *parent)
{
    auto *heading = new QWidget(parent);
    auto *layout = new QVBoxLayout(heading);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSentenceGap);
    auto *title = new QLabel(page.title(), heading);
    setGalleryRole(title, "pageTitle");
    auto *sentence = new QLabel(page.sentence(), heading);
    setGalleryRole(sentence, "pageSentence");
    sentence->setWordWrap(true);
    layout->addWidget(title);
    layout->addWidget(sentence);
    return heading;
}

} // namespace

PageView::PageView(const GalleryPage &page, QWidget *window, QWidget *parent)
    : QScrollArea(parent)
{
    setAccessibleName(page.title());
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setGalleryRole(this, "page");
    setGalleryRole(verticalScrollBar(), "scroll");

    auto *content = new QWidget(this);
    setGalleryRole(content, "pageContent");
    content->setMaximumWidth(kMaximumWidth);
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(kPageMargin, kPageMargin - 8, kPageMargin, kPageMargin);
    layout->setSpacing(kPageSpacing);
    layout->addWidget(newHeading(page, content));
    PageBuilder builder(content, window, &m_shots);
    page.build(builder);
    layout->addStretch();
    setWidget(content);
}

int PageView::missingHeight() const
{
    const int needed = widget()->layout()->totalHeightForWidth(viewport()->width());
    return std::max(0, needed - viewport()->height());
}
