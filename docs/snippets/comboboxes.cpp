#include "samples.h"

#include "customcombox.h"
#include "customcomboxheader.h"
#include "customshadowcombox.h"

namespace comboboxes_snippets {

class Page : public QWidget
{
public:
    CustomShadowCombox *newCombo();
    void setResolution(int row);
    void explainPlan(int row);
    void startAfresh(CustomShadowCombox *combo, const QStringList &cameras);
    void follow(CustomShadowCombox *combo);
};

CustomShadowCombox *Page::newCombo()
{
    QWidget *page = this;
    //! [first combo box]
    auto *combo = new CustomShadowCombox(page);
    combo->addItem(QStringLiteral("1280 x 720"));
    combo->addItem(QStringLiteral("3840 x 2160"), /*isGray*/ true, /*isChinese*/ false);
    connect(combo, &CustomShadowCombox::currentIndexChanged, this, &Page::setResolution);
    connect(combo, &CustomShadowCombox::currentGrayIndexChanged, this, &Page::explainPlan);
    //! [first combo box]
    return combo;
}

void Page::setResolution(int) {}
void Page::explainPlan(int) {}

void Page::startAfresh(CustomShadowCombox *combo, const QStringList &cameras)
{
    //! [afresh]
    combo->reset(); // not clear(): no rows, no index, no text
    combo->setItems(cameras);
    combo->setCurrentIndex(0); // emits nothing
    setResolution(0);
    //! [afresh]
}

void Page::follow(CustomShadowCombox *combo)
{
    //! [rows at work]
    combo->insertItem(0, QStringLiteral("640 x 360")); // the current row stays the current row
    combo->setItemData(0, QSize(640, 360));
    const int row = combo->findData(QSize(640, 360));
    combo->removeItem(row);
    QVector<bool> gray(combo->count(), false);
    gray.last() = true;
    combo->setItemGrayState(gray);
    //! [rows at work]
    //! [header style]
    combo->setHeaderStyle(QStringLiteral("QWidget#%1{background:#F5F6F7;border-radius:8px;}"));
    combo->setHeaderTextStyle(QStringLiteral("color:#1F1F22;font-size:14px;"));
    //! [header style]
}

} // namespace comboboxes_snippets

QWidget *customShadowCombox(QWidget *page)
{
    //! [CustomShadowCombox]
    auto *combo = new CustomShadowCombox(page);
    combo->addItem(QStringLiteral("1280 x 720"));
    combo->addItem(QStringLiteral("3840 x 2160"), /*isGray*/ true, /*isChinese*/ false);
    combo->setCurrentIndex(0); // emits nothing
    QObject::connect(combo, &CustomShadowCombox::currentIndexChanged, page,
                     [](int row) { qInfo("row %d", row); });
    //! [CustomShadowCombox]
    combo->setFixedSize(260, 48);
    return combo;
}

QWidget *customComboxHeader(QWidget *page)
{
    //! [CustomComboxHeader]
    auto *header = new CustomComboxHeader(page);
    header->setText(QStringLiteral("Front camera"));
    QObject::connect(header, &CustomComboxHeader::signalClicked, page,
                     [header] { header->setIconState(true); });
    //! [CustomComboxHeader]
    return header;
}

QWidget *customCombox(QWidget *page)
{
    //! [customcombox]
    auto *combo = new customcombox(page);
    combo->addItems({QStringLiteral("Front camera"), QStringLiteral("Desk camera")});
    combo->setVisibleCount(8);
    combo->setLineEditWidth(150);
    //! [customcombox]
    combo->setMinimumWidth(200);
    return combo;
}
