#include "customshadowcombox.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

namespace {

constexpr QSize kNormalSize(260, 48);
constexpr QSize kSmallSize(180, 28);
constexpr int kManyRows = 200;
constexpr int kHideDelayMs = 2000;

QString frameStyle()
{
    return gallerySheet(
        QStringLiteral("QWidget#%1{background:@paper;border:1px solid @outline;border-radius:8px;}"));
}

QString smallFrameStyle()
{
    return gallerySheet(
        QStringLiteral("QWidget#%1{background:@paper;border:1px solid @outline;border-radius:4px;}"));
}

QString textStyle()
{
    return QStringLiteral("QLabel{background:transparent; color: #1F1F22; font-size:16px;}");
}

QStringList cameras(int count)
{
    QStringList texts;
    for (int camera = 1; camera <= count; ++camera)
        texts << QStringLiteral("Camera %1").arg(camera);
    return texts;
}

// A combo box that opens on demand, and that reports.
class SampleCombo : public CustomShadowCombox
{
public:
    SampleCombo(bool small, QWidget *parent)
        : CustomShadowCombox(small, parent)
    {
        setFixedSize(small ? kSmallSize : kNormalSize);
        followLook(this, [this, small] { setHeaderStyle(small ? smallFrameStyle() : frameStyle()); });
        reportSignal(this, &CustomShadowCombox::currentIndexChanged, "currentIndexChanged");
        reportSignal(this, &CustomShadowCombox::currentGrayIndexChanged, "currentGrayIndexChanged");
        reportSignal(this, &CustomShadowCombox::signalPopWidHideWhenClickOtherPos,
                     "signalPopWidHideWhenClickOtherPos");
    }

    void addItems(const QStringList &texts)
    {
        for (const QString &text : texts)
            addItem(text, 16);
    }
    void addSmallItems(const QStringList &texts)
    {
        for (const QString &text : texts)
            addSmallStyleItem(text);
    }

    QWidget *open()
    {
        showPopup();
        const QList<QWidget *> children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *child : children) {
            if (child->isWindow())
                return child;
        }
        return nullptr;
    }
};

SampleCombo *newCombo(PageBuilder &page, const QStringList &texts)
{
    auto *combo = new SampleCombo(false, page.widget());
    combo->addItems(texts);
    combo->setCurrentIndex(0);
    return combo;
}

SampleCombo *newSmallCombo(PageBuilder &page, const QStringList &texts)
{
    auto *combo = new SampleCombo(true, page.widget());
    combo->addSmallItems(texts);
    combo->setCurrentIndex(0);
    return combo;
}

void addStyles(PageBuilder &page)
{
    page.section(
        "Two styles",
        "The list opens below the header, or above it where the screen ends; any key, a press elsewhere "
        "or another window closes it.");
    SampleCombo *normal = newCombo(page, cameras(4));
    page.example(normal, "normal");
    SampleCombo *small = newSmallCombo(page, cameras(4));
    page.example(small, "small");
    page.shot("popup-customshadowcombox", [normal]() -> QWidget * { return normal->open(); });
    page.shot("popup-customshadowcombox-small", [small]() -> QWidget * { return small->open(); });
}

void addRows(PageBuilder &page)
{
    page.section("Rows", "A click on a gray row is reported and selects nothing.");
    auto *gray = newCombo(page, {QStringLiteral("1280 x 720")});
    gray->addItem(QStringLiteral("1920 x 1080"), false, false);
    gray->addItem(QStringLiteral("2560 x 1440"), true, false);
    gray->addItem(QStringLiteral("3840 x 2160"), true, true);
    page.example(gray, "gray rows with both badges");
    page.example(newCombo(page, {QStringLiteral("Short"),
                                 QStringLiteral("A device whose name is much longer than the list is wide"),
                                 QStringLiteral("Another device with a name that does not fit")}),
                 "long texts");
    page.example(newCombo(page, cameras(kManyRows)), "200 rows: ten are seen");
    page.example(newSmallCombo(page, cameras(kManyRows)), "the same, small");
    auto *mixed = newCombo(page, {});
    mixed->addItem(QStringLiteral("20 pixels"), 20);
    mixed->addItem(QStringLiteral("12 pixels"), 12);
    mixed->addItem(QStringLiteral("36 high, small corners"), 36, 14, 14);
    mixed->setCurrentIndex(0);
    page.example(mixed, "text sizes and heights");
    page.shot("popup-customshadowcombox-gray", [gray]() -> QWidget * { return gray->open(); });
}

void addRowButtons(PageBuilder &page, SampleCombo *combo)
{
    page.button("addItem(text)", [combo] { combo->addItem(QStringLiteral("Row %1").arg(combo->count())); });
    page.button("addItem(text, gray)",
                [combo] { combo->addItem(QStringLiteral("Gray row %1").arg(combo->count()), true, false); });
    page.button("insertItem(0)", [combo] {
        combo->insertItem(0, QStringLiteral("Inserted row"));
        report(QStringLiteral("currentIndex() is %1").arg(combo->currentIndex()));
    });
    page.button("removeItem(current)", [combo] { combo->removeItem(combo->currentIndex()); });
    page.button("reset", [combo] { combo->reset(); });
    page.button("clear", [combo] {
        combo->clear();
        report(QStringLiteral("count() is %1, currentIndex() still %2")
                   .arg(combo->count())
                   .arg(combo->currentIndex()));
    });
    page.button("isActive", [combo] {
        report(combo->isActive() ? QStringLiteral("isActive(): true") : QStringLiteral("isActive(): false"));
    });
    page.button("hidePopup after 2 s",
                [combo] { QTimer::singleShot(kHideDelayMs, combo, &CustomShadowCombox::hidePopup); });
}

void addSetters(PageBuilder &page)
{
    page.section("Setters", "They act on this one.");
    SampleCombo *combo = newCombo(page, cameras(5));
    page.example(combo);
    page.spinBox("setCurrentIndex", -1, 20, 0, [combo](int index) { combo->setCurrentIndex(index); });
    page.spinBox("Width", 120, 420, combo->width(), [combo](int width) { combo->setFixedWidth(width); });
    page.checkBox("Every other row gray", false, [combo](bool gray) {
        QVector<bool> states(combo->count());
        for (int row = 0; row < states.size(); ++row)
            states[row] = gray && row % 2 == 1;
        combo->setItemGrayState(states);
    });
    QCheckBox *moves = page.checkBox("Report moves outside", false);
    QObject::connect(combo, &CustomShadowCombox::signalMouseMoveLeavePopup, moves, [moves](QPoint pos) {
        if (moves->isChecked())
            report(QStringLiteral("signalMouseMoveLeavePopup(%1, %2)").arg(pos.x()).arg(pos.y()));
    });
    page.lineEdit("setItemText", combo->itemText(0), [combo](const QString &text) {
        combo->setItemText(combo->currentIndex(), text);
        report(QStringLiteral("findText() finds it at %1").arg(combo->findText(text)));
    });
    page.lineEdit("setItemData", "", [combo](const QString &text) {
        combo->setItemData(combo->currentIndex(), text);
        report(QStringLiteral("itemData(%1): \"%2\"")
                   .arg(combo->currentIndex())
                   .arg(combo->itemData(combo->currentIndex()).toString()));
        report(QStringLiteral("findData() finds it at %1").arg(combo->findData(text)));
    });
    page.wideLineEdit("setHeaderStyle", frameStyle(),
                      [combo](const QString &style) { combo->setHeaderStyle(style); });
    page.wideLineEdit("setHeaderTextStyle", textStyle(),
                      [combo](const QString &style) { combo->setHeaderTextStyle(style); });
    addRowButtons(page, combo);
    page.properties(combo);
}

void addBottom(PageBuilder &page)
{
    page.section("At the bottom",
                 "Move the window down until the list no longer fits on the screen: it opens above, and the "
                 "arrow points up.");
    page.example(newCombo(page, cameras(8)));
    page.example(newSmallCombo(page, cameras(8)));
}

void build(PageBuilder &page)
{
    page.include("customshadowcombox.h");
    addStyles(page);
    addRows(page);
    addSetters(page);
    addBottom(page);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::ComboBoxes, "CustomShadowCombox",
                     "A drop-down selector whose list is a window of its own with a painted shadow.", build);

} // namespace
