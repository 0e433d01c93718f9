// The form of PopupDlgWithMask that turns pages.
#include "popupdlgwithmask.h"

#include "accessiblecontent.h"
#include "accessiblenotification.h"
#include "looksheets.h"
#include "styledlabel.h"

#include <QtCore/QMargins>
#include <QtCore/QTimer>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr char kPictureStyle[] = "QLabel \n{ \n background: transparent;\n border-image: url(%1);\n}";
constexpr char kCurrentDotStyle[] = "QLabel \n{ \n background:@currentDot;\n border-radius:2px;\n}";
constexpr char kOtherDotStyle[] = "QLabel \n{ \n background:@otherDot;\n border-radius:2px;\n}";
constexpr char kPageTitleStyle[] =
    "QLabel \n{ \n background: transparent; font-size: 14px;\n font-weight: Medium; \n"
    " color: @pageTitle; \n}";
constexpr char kPageContentStyle[] =
    "QLabel \n{ \n background: transparent; font-size: 12px;\n font-weight: Normal; \n"
    " color: @pageText; \n}";

constexpr int kPageIntervalMs = 3000;
constexpr QSize kPageSize(268, 287);
constexpr int kPageTopMargin = 10;
constexpr QSize kPictureSize(268, 204);
constexpr QSize kDotsSize(268, 4);
constexpr QSize kDotSize(4, 4);
constexpr int kDotSpacing = 4;
constexpr int kDotsGap = 14;
constexpr QSize kPageTitleSize(268, 20);
constexpr int kPageTitleGap = 4;
constexpr QSize kPageContentSize(268, 17);

QLabel *createPageLine(QWidget *page, const QString &text, QSize size, const char *sheet)
{
    QLabel *label = createStyledLabel(page, text, Qt::AlignHCenter | Qt::AlignVCenter, sheet);
    label->setFixedSize(size);
    label->setAttribute(Qt::WA_LayoutUsesWidgetRect);
    return label;
}

} // namespace

PopupDlgWithMask::PopupDlgWithMask(QString backgroundImage, QSize size, int marginLeft, int marginTop,
                                   int marginRight, int marginBottom, QString title,
                                   QVector<QString> &pageImages, QVector<QString> &pageTitles,
                                   QVector<QString> &pageContents, QString noteText, QString confirmText,
                                   bool useMask, bool deleteOnClose, bool dialogWindow, bool modal,
                                   QWidget *parent)
    : BaseMoveDialog(parent, false, true, dialogWindow)
    , m_useMask(useMask)
    , m_maskParent(parent)
    , m_pageImages(pageImages)
    , m_pageTitles(pageTitles)
    , m_pageContents(pageContents)
{
    initFrame(backgroundImage, size, QMargins(marginLeft, marginTop, marginRight, marginBottom),
              deleteOnClose, modal);
    initMultiPages(title, confirmText, noteText);
    initPageTimer();
}

void PopupDlgWithMask::initMultiPages(QString title, QString confirmText, QString noteText)
{
    addTitleRow(title);

    m_pageStack = new QStackedWidget(this);
    const int count = m_pageImages.size();
    if (count == m_pageTitles.size() && count == m_pageContents.size()) {
        for (int i = 0; i < count; ++i) {
            auto *page = new QWidget;
            initSubWidget(page, m_pageImages.at(i), m_pageTitles.at(i), m_pageContents.at(i), i + 1, count);
            m_pageStack->addWidget(page);
        }
    }
    m_pageCount = m_pageStack->count();
    if (m_pageCount > 0)
        m_pageStack->setCurrentIndex(0);
    m_mainLayout->addWidget(m_pageStack);

    addBottomRow(confirmText, noteText);
}

void PopupDlgWithMask::initSubWidget(QWidget *page, QString image, QString pageTitle, QString pageContent,
                                     int pageNumber, int pageCount)
{
    if (!page)
        return;
    page->setFixedSize(kPageSize);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, kPageTopMargin, 0, 0);
    layout->setSpacing(0);

    auto *picture = new QLabel(page);
    picture->setFixedSize(kPictureSize);
    LookSheets::apply(picture, kPictureStyle, {image});
    layout->addWidget(picture);
    layout->addSpacing(kDotsGap);

    auto *dots = new QWidget(page);
    dots->setFixedSize(kDotsSize);
    initIndexWinget(dots, pageNumber, pageCount);
    layout->addWidget(dots);
    layout->addSpacing(kDotsGap);

    layout->addWidget(createPageLine(page, pageTitle, kPageTitleSize, kPageTitleStyle));
    layout->addSpacing(kPageTitleGap);
    layout->addWidget(
        AccessibleContent::mark(createPageLine(page, pageContent, kPageContentSize, kPageContentStyle)));
}

/// Each page has a row of its own with its own dot dark, so nothing is to be updated when a page is turned.
void PopupDlgWithMask::initIndexWinget(QWidget *dots, int pageNumber, int pageCount)
{
    if (!dots)
        return;
    auto *layout = new QHBoxLayout(dots);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kDotSpacing);
    layout->addStretch();
    for (int i = 0; i < pageCount; ++i) {
        auto *dot = new QLabel(dots);
        dot->setFixedSize(kDotSize);
        LookSheets::apply(dot, i == pageNumber - 1 ? kCurrentDotStyle : kOtherDotStyle);
        layout->addWidget(dot);
    }
    layout->addStretch();
}

/// The timer starts with every showing, see setVisible().
void PopupDlgWithMask::initPageTimer()
{
    m_pageTimer = new QTimer(this);
    m_pageTimer->setTimerType(Qt::PreciseTimer);
    m_pageTimer->setInterval(kPageIntervalMs);
    m_pageTimer->setSingleShot(false);
    connect(m_pageTimer, &QTimer::timeout, this, &PopupDlgWithMask::slot_timerFunc);
}

void PopupDlgWithMask::slot_timerFunc()
{
    if (!m_pageStack || m_pageCount <= 1)
        return;
    m_pageStack->setCurrentIndex((m_pageStack->currentIndex() + 1) % m_pageCount);
    AccessibleNotification::descriptionChanged(this);
}
