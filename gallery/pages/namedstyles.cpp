#include "flowlayout.h"
#include "gallerystyle.h"
#include "orvlook.h"
#include "pagebuilder.h"

#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

const char *const kProperty = "PropertyStyle_BrixelCam";
constexpr int kTileWidth = 205;
constexpr int kTileGap = 14;
constexpr int kGroundPadding = 12;
constexpr int kGroundHeight = 70;
constexpr QSize kAreaSize(150, 46);
constexpr int kFieldWidth = 160;
constexpr int kButtonWidth = 150;

/// The catalogue in the look in force, as a client has it that follows the library's looks.
QString catalogue()
{
    QFile file(QStringLiteral(":/orvcommonlib/sheets/resourceGeneratedStyle_BrixelCam.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString sheet = QString::fromUtf8(file.readAll());
    const QStringList names = OrvLook::names();
    for (const QString &name : names)
        sheet.replace(QLatin1Char('@') + name, OrvLook::color(name).name());
    return sheet;
}

/// The names of the catalogue by the widget type that their rules select, both in alphabetical order.
QMap<QString, QStringList> namesByType(const QString &sheet)
{
    QMap<QString, QStringList> names;
    static const QRegularExpression rule(
        QStringLiteral(R"((\w+)[:\w!-]*\[PropertyStyle_BrixelCam='(\w+)'\])"));
    QRegularExpressionMatchIterator matches = rule.globalMatch(sheet);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        QStringList &ofType = names[match.captured(1)];
        if (!ofType.contains(match.captured(2)))
            ofType.append(match.captured(2));
    }
    for (QStringList &ofType : names)
        ofType.sort();
    return names;
}

/// A widget that would like to be an area of some size; rules that make lines of it have their way all the
/// same.
template<typename Widget>
class Area : public Widget
{
public:
    explicit Area(QWidget *parent)
        : Widget(parent)
    {
        this->setWindowFlags(Qt::Widget);
        this->setAttribute(Qt::WA_StyledBackground);
    }

    QSize sizeHint() const override { return kAreaSize; }
};

template<typename Button>
QWidget *newButton(const QString &name, QWidget *parent)
{
    auto *button = new Button(parent);
    // What looks like a title bar's button is a picture alone.
    const bool picture = name.contains(QLatin1String("Close")) || name.contains(QLatin1String("Minimize")) ||
                         name.contains(QLatin1String("Back"));
    if (!picture) {
        button->setText(QStringLiteral("Press me"));
        button->setMinimumWidth(kButtonWidth);
    }
    return button;
}

QWidget *newWidget(const QString &type, const QString &name, QWidget *parent)
{
    if (type == QLatin1String("QComboBox")) {
        auto *box = new QComboBox(parent);
        box->setMinimumWidth(kFieldWidth);
        box->addItems(
            {QStringLiteral("Front camera"), QStringLiteral("Desk camera"), QStringLiteral("Screen")});
        return box;
    }
    if (type == QLatin1String("QCheckBox")) {
        auto *box = new QCheckBox(QStringLiteral("Three states"), parent);
        box->setTristate(true);
        box->setCheckState(Qt::Checked);
        return box;
    }
    if (type == QLatin1String("QDateEdit")) {
        auto *edit = new QDateEdit(QDate(2024, 5, 17), parent);
        edit->setCalendarPopup(true);
        edit->setMinimumWidth(kFieldWidth);
        return edit;
    }
    if (type == QLatin1String("QLabel") && name.contains(QLatin1String("Split")))
        return new Area<QLabel>(parent);
    if (type == QLatin1String("QLabel"))
        return new QLabel(QStringLiteral("A label"), parent);
    if (type == QLatin1String("QLineEdit"))
        return new QLineEdit(QStringLiteral("A line of text"), parent);
    if (type == QLatin1String("QTextEdit")) {
        auto *edit = new QTextEdit(QStringLiteral("Several lines\nof text"), parent);
        edit->setFixedSize(kAreaSize);
        return edit;
    }
    if (type == QLatin1String("QPushButton"))
        return newButton<QPushButton>(name, parent);
    if (type == QLatin1String("QToolButton"))
        return newButton<QToolButton>(name, parent);
    if (type == QLatin1String("QDialog"))
        return new Area<QDialog>(parent);
    if (type == QLatin1String("QMainWindow"))
        return new Area<QMainWindow>(parent);
    return new Area<QWidget>(parent);
}

/// The ground on which the style is seen best: what is white needs a dark one, the palest lines a white one.
const char *groundFor(const QString &name)
{
    if (name.endsWith(QLatin1String("Back2")) || name.contains(QLatin1String("WhiteColor")))
        return "groundDark";
    if (name.contains(QLatin1String("Split")) || name.endsWith(QLatin1String("_GrayBorder")))
        return "groundWhite";
    return "groundGrey";
}

/// A widget with its named style on a ground of its own, the name below.
QWidget *newTile(const QString &type, const QString &name, QVector<QWidget *> &widgets, QWidget *parent)
{
    auto *tile = new QWidget(parent);
    tile->setFixedWidth(kTileWidth);
    auto *ground = new QWidget(tile);
    ground->setMinimumHeight(kGroundHeight);
    ground->setProperty("picture", QStringLiteral("style-") + name);
    setGalleryRole(ground, groundFor(name));
    ground->setAttribute(Qt::WA_StyledBackground);
    QWidget *widget = newWidget(type, name, ground);
    widget->setProperty(kProperty, name);
    widget->setAccessibleName(name);
    if (auto *button = qobject_cast<QAbstractButton *>(widget))
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [name] { report(name + QStringLiteral(" was pressed")); });
    widgets.append(widget);
    auto *groundLayout = new QVBoxLayout(ground);
    groundLayout->setContentsMargins(kGroundPadding, kGroundPadding, kGroundPadding, kGroundPadding);
    groundLayout->addWidget(widget, 0, Qt::AlignCenter);

    auto *caption = new QLabel(tile->fontMetrics().elidedText(name, Qt::ElideMiddle, kTileWidth), tile);
    caption->setToolTip(name);
    setGalleryRole(caption, "caption");
    auto *layout = new QVBoxLayout(tile);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(ground);
    layout->addWidget(caption);
    return tile;
}

void build(PageBuilder &page)
{
    const QMap<QString, QStringList> names = namesByType(catalogue());
    int count = 0;
    for (const QStringList &ofType : names)
        count += ofType.size();

    page.section(
        "A name is a style",
        QStringLiteral(
            "A widget takes one of the %1 styles of <b>resourceGeneratedStyle_BrixelCam.qss</b> when "
            "its property <b>PropertyStyle_BrixelCam</b> holds the name. The images that the rules "
            "name are the client's.")
            .arg(count));
    QCheckBox *enabled = page.checkBox("Enabled", true);

    auto widgets = std::make_shared<QVector<QWidget *>>();
    QVector<QWidget *> walls;
    for (auto type = names.cbegin(); type != names.cend(); ++type) {
        page.section(type.key());
        auto *wall = new QWidget(page.widget());
        auto *flow = new FlowLayout(kTileGap, kTileGap, wall);
        flow->setContentsMargins(0, 0, 0, 0);
        for (const QString &name : type.value())
            flow->addWidget(newTile(type.key(), name, *widgets, wall));
        page.wideExample(wall);
        walls << wall;
    }
    followLook(enabled, [walls] {
        const QString sheet = catalogue();
        for (QWidget *wall : walls)
            wall->setStyleSheet(sheet);
    });
    QObject::connect(enabled, &QCheckBox::toggled, enabled, [widgets](bool on) {
        for (QWidget *widget : qAsConst(*widgets))
            widget->setEnabled(on);
    });
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Services, "Named styles",
                     "The catalogue of styles that a client gives to its widgets by name.", build);

} // namespace
