#include "pagelist.h"
#include "gallerypage.h"
#include "pagebuilder.h"

#include <QShortcut> // of another module in each Qt
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int kWidth = 248;
constexpr int kMargin = 12;
constexpr int kListGap = 6; // from the list's scroll bar to the right edge
constexpr int kSearchHeight = 32;
constexpr int kPageRowHeight = 30;
constexpr int kFamilyRowHeight = 34;
constexpr int kPageRole = Qt::UserRole;

const GalleryPage *pageOf(const QListWidgetItem *item)
{
    return static_cast<const GalleryPage *>(item->data(kPageRole).value<void *>());
}

QListWidgetItem *newFamilyItem(const QString &title, QListWidget *list)
{
    auto *item = new QListWidgetItem(title, list);
    item->setFlags(Qt::NoItemFlags);
    item->setSizeHint(QSize(0, kFamilyRowHeight));
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignBottom);
    QFont font = list->font();
    font.setPixelSize(12);
    item->setFont(font);
    return item;
}

QListWidgetItem *newPageItem(const GalleryPage *page, QListWidget *list)
{
    auto *item = new QListWidgetItem(page->title(), list);
    item->setData(kPageRole, QVariant::fromValue(const_cast<void *>(static_cast<const void *>(page))));
    item->setSizeHint(QSize(0, kPageRowHeight));
    item->setToolTip(page->sentence());
    return item;
}

} // namespace

PageList::PageList(QWidget *parent)
    : QWidget(parent)
    , m_search(new QLineEdit(this))
    , m_list(new QListWidget(this))
{
    setFixedWidth(kWidth);
    setGalleryRole(this, "sidebar");
    setAttribute(Qt::WA_StyledBackground);
    setGalleryRole(m_search, "search");
    setGalleryRole(m_list, "pageList");
    setGalleryRole(m_list->verticalScrollBar(), "scroll");

    m_search->setPlaceholderText(QStringLiteral("Find a page"));
    m_search->setClearButtonEnabled(true);
    m_search->setFixedHeight(kSearchHeight);
    m_search->setAccessibleName(QStringLiteral("Find a page"));
    m_search->findChild<QToolButton *>()->setAccessibleName(QStringLiteral("Clear"));
    m_list->setAccessibleName(QStringLiteral("Pages"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    fill();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kListGap, kMargin);
    layout->setSpacing(4);
    auto *searchRow = new QHBoxLayout;
    searchRow->setContentsMargins(0, 0, kMargin - kListGap, 0);
    searchRow->addWidget(m_search);
    layout->addLayout(searchRow);
    layout->addWidget(m_list);

    connect(m_search, &QLineEdit::textChanged, this, &PageList::filter);
    connect(m_search, &QLineEdit::returnPressed, this, &PageList::chooseFirst);
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    connect(m_list, &QListWidget::currentItemChanged, this, &PageList::emitChosen);
}

void PageList::focusList()
{
    m_list->setFocus();
}

void PageList::setCurrentPage(const GalleryPage *page)
{
    for (int row = 0; row < m_list->count(); ++row) {
        if (pageOf(m_list->item(row)) == page)
            m_list->setCurrentRow(row);
    }
}

void PageList::fill()
{
    const GalleryPage *previous = nullptr;
    const QVector<const GalleryPage *> pages = GalleryPage::all();
    for (const GalleryPage *page : pages) {
        if (previous == nullptr || previous->family() != page->family())
            newFamilyItem(familyTitle(page->family()), m_list);
        newPageItem(page, m_list);
        previous = page;
    }
}

void PageList::filter(const QString &text)
{
    // From the end, so that a family's heading knows whether any of its pages is left.
    bool anyPageShown = false;
    for (int row = m_list->count() - 1; row >= 0; --row) {
        QListWidgetItem *item = m_list->item(row);
        if (pageOf(item) == nullptr) {
            item->setHidden(!anyPageShown);
            anyPageShown = false;
        } else {
            const bool shown = item->text().contains(text, Qt::CaseInsensitive);
            item->setHidden(!shown);
            anyPageShown = anyPageShown || shown;
        }
    }
}

void PageList::chooseFirst()
{
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem *item = m_list->item(row);
        if (pageOf(item) != nullptr && !item->isHidden()) {
            m_list->setCurrentRow(row);
            return;
        }
    }
}

void PageList::emitChosen(QListWidgetItem *item)
{
    const GalleryPage *page = item == nullptr ? nullptr : pageOf(item);
    if (page != nullptr)
        Q_EMIT pageChosen(page);
}
