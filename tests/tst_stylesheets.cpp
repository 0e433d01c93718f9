#include "logcapture.h"
#include "orvcommonlib.h"
#include "testmain.h"

#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>

#include <memory>

namespace {

const QString kFolder = QStringLiteral(":/qssFromResource/");
const QString kScrollBars = QStringLiteral("global_QScrollBar.qss");
const QString kGlobal = QStringLiteral("resourceGlobal.qss");
const QString kPlugins = QStringLiteral("resourceplugins.qss");
const QString kNamedStyles = QStringLiteral("resourceGeneratedStyle_BrixelCam.qss");
const char kStyleProperty[] = "PropertyStyle_BrixelCam";

constexpr int kNamedStylesLength = 25000;
constexpr int kScrollBarRules = 6;

using Declarations = QMap<QString, QString>;

struct Rule
{
    QStringList selectors;
    Declarations declarations;
};

// clang-format off
const char kStyleNames[] =
    "ComboBox_ComboBoxNum QCheckBox_Normal QComboBox_IMNormalInput QDateEdit_Normal QDialog_BrixelBg "
    "QDialog_BrixelLoginBorderImage QDialog_ImShadowStyle3 QDialog_NormalWhiteBg QDialog_WhiteBg "
    "QLabel_8B8B8BBgColor QLabel_BrixelTitle QLabel_GrayColor QLabel_GrayColor14PxFont QLabel_GreenColor "
    "QLabel_IMInsertButtonStyle QLabel_IMMainStyle_Title QLabel_MainFrontTextCr QLabel_SplitLine "
    "QLabel_SplitLine2 QLabel_Title QLabel_WhiteColorMedium QLineEdit_LoginInput "
    "QLineEdit_TransBgNoneBorder232323FColor QLineEdit_TransBgNoneBorder8B8B8BFColor "
    "QMainWindow_NormalWhiteBg QPushButton_Back QPushButton_Back2 QPushButton_CloseGrayBg "
    "QPushButton_CloseGrayBg2 QPushButton_CloseWhiteBg QPushButton_ForgotPassWordLink "
    "QPushButton_GreenLink QPushButton_IMButton_Style1 QPushButton_IMButton_Style2 "
    "QPushButton_IMButton_Style4 QPushButton_MinimizeGrayBg QPushButton_MinimizeGrayBg2 "
    "QPushButton_MinimizeWhiteBg QPushButton_NormalGreenBg QPushButton_NormalGreenBg2 "
    "QPushButton_NormalGreenBg3 QPushButton_NormalGreenBg4 QPushButton_SameMainWindowClose "
    "QPushButton_Transparent QTextEdit_TransBgAndNoneBorder QToolButton_CloseGrayBg "
    "QToolButton_CloseGrayBg2 QToolButton_CloseWhiteBg QToolButton_MinimizeGrayBg "
    "QToolButton_MinimizeGrayBg2 QToolButton_MinimizeWhiteBg QToolButton_SameMainWindowClose "
    "QWidget_BrixelBg QWidget_BrixelLoginBorderImage QWidget_CourseDetailWidget QWidget_GrayBorder "
    "QWidget_GrayColor QWidget_ImShadowStyle1 QWidget_ImShadowStyle2 QWidget_ImShadowStyle3 QWidget_Input "
    "QWidget_LeftSpliter QWidget_MainColorBorder QWidget_MainColorBorder_Brixel QWidget_NoBorder "
    "QWidget_NormalWhiteBg QWidget_NormalWhiteBg2 QWidget_NormalWhiteBg_GrayBorder "
    "QWidget_NormalWhiteBg_NoneBorder QWidget_NormalWhiteBg_NoneBorder2 QWidget_QusetionBgImage "
    "QWidget_QusetionBgImage2 QWidget_SplitLine QWidget_SplitLine2 QWidget_SplitLine3 "
    "QWidget_TransBgAndNoneBorder QWidget_WhiteBg";
// clang-format on

QStringList styleNames()
{
    return QString::fromLatin1(kStyleNames).split(QLatin1Char(' '));
}

QByteArray sheetBytes(const QString &sheet)
{
    QFile file(kFolder + sheet);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString sheetText(const QString &sheet)
{
    return QString::fromUtf8(sheetBytes(sheet));
}

Declarations declarationsIn(const QString &body)
{
    Declarations result;
    const QStringList parts = body.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        if (part.trimmed().isEmpty())
            continue;
        const int colon = part.indexOf(QLatin1Char(':'));
        result.insert(part.left(colon).trimmed(), colon < 0 ? QString() : part.mid(colon + 1).trimmed());
    }
    return result;
}

QVector<Rule> rulesIn(QString text)
{
    text.remove(
        QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    QVector<Rule> result;
    const QStringList blocks = text.split(QLatin1Char('}'));
    for (const QString &block : blocks) {
        const int brace = block.indexOf(QLatin1Char('{'));
        if (brace < 0)
            continue;
        Rule rule;
        const QStringList selectors = block.left(brace).split(QLatin1Char(','));
        for (const QString &selector : selectors)
            rule.selectors << selector.simplified();
        rule.declarations = declarationsIn(block.mid(brace + 1));
        result << rule;
    }
    return result;
}

QVector<Rule> rulesOf(const QString &sheet)
{
    return rulesIn(sheetText(sheet));
}

/// The rules of the catalogue without the scroll-bar block at its head.
QVector<Rule> namedRules()
{
    return rulesOf(kNamedStyles).mid(kScrollBarRules);
}

Declarations declarationsFor(const QString &sheet, const QString &selector)
{
    Declarations result;
    const QVector<Rule> rules = rulesOf(sheet);
    for (const Rule &rule : rules) {
        if (!rule.selectors.contains(selector))
            continue;
        for (auto it = rule.declarations.cbegin(); it != rule.declarations.cend(); ++it)
            result.insert(it.key(), it.value());
    }
    return result;
}

QString namedSelector(const QString &type, const QString &state, const QString &name)
{
    return QStringLiteral("%1%2[%3='%4']").arg(type, state, QString::fromLatin1(kStyleProperty), name);
}

/// The class that a style is made for: its name begins with it, but for one that lacks the Q.
QString typeOf(const QString &styleName)
{
    const QString type = styleName.section(QLatin1Char('_'), 0, 0);
    return type == QLatin1String("ComboBox") ? QStringLiteral("QComboBox") : type;
}

std::unique_ptr<QWidget> widgetOf(const QString &type)
{
    static const QMap<QString, QWidget *(*)()> makers{
        {QStringLiteral("QCheckBox"),
         [] {
             return static_cast<QWidget *>(new QCheckBox(QStringLiteral("text")));
         }},
        {QStringLiteral("QComboBox"),
         [] {
             return static_cast<QWidget *>(new QComboBox);
         }},
        {QStringLiteral("QDateEdit"),
         [] {
             return static_cast<QWidget *>(new QDateEdit);
         }},
        {QStringLiteral("QDialog"),
         [] {
             return static_cast<QWidget *>(new QDialog);
         }},
        {QStringLiteral("QLabel"),
         [] {
             return static_cast<QWidget *>(new QLabel(QStringLiteral("text")));
         }},
        {QStringLiteral("QLineEdit"),
         [] {
             return static_cast<QWidget *>(new QLineEdit(QStringLiteral("text")));
         }},
        {QStringLiteral("QMainWindow"),
         [] {
             return static_cast<QWidget *>(new QMainWindow);
         }},
        {QStringLiteral("QPushButton"),
         [] {
             return static_cast<QWidget *>(new QPushButton(QStringLiteral("text")));
         }},
        {QStringLiteral("QTextEdit"),
         [] {
             return static_cast<QWidget *>(new QTextEdit(QStringLiteral("text")));
         }},
        {QStringLiteral("QToolButton"),
         [] {
             return static_cast<QWidget *>(new QToolButton);
         }},
        {QStringLiteral("QWidget"),
         [] {
             return new QWidget;
         }},
    };
    const auto maker = makers.value(type);
    return std::unique_ptr<QWidget>(maker ? maker() : nullptr);
}

std::unique_ptr<QWidget> styledWidget(const QString &styleName)
{
    std::unique_ptr<QWidget> widget = widgetOf(typeOf(styleName));
    if (widget)
        widget->setProperty(kStyleProperty, styleName);
    return widget;
}

void movePointerOver(QWidget *widget)
{
    widget->ensurePolished();
    widget->setAttribute(Qt::WA_UnderMouse);
    QMouseEvent move(QEvent::MouseMove, QRectF(widget->rect()).center(),
                     widget->mapToGlobal(widget->rect().center()), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
}

QColor paintedColor(QWidget *widget, QPoint position)
{
    return widget->grab().toImage().pixelColor(position);
}

} // namespace

/// Stands in for the client's widget of this name.
class SharingToolWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QRect titleBarContentsMargins MEMBER titleBarContentsMargins)

public:
    QRect titleBarContentsMargins;
};

/// Stands in for the client's widget of this name.
class LevelIndicator : public QWidget
{
    Q_OBJECT
};

/// Stands in for the client's widget of this name.
class TimerToolWidget : public QWidget
{
    Q_OBJECT
};

/// The four style sheets of the embedded tree.
class tst_stylesheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void plainText_data();
    void plainText();
    void everyDeclarationIsWhole_data();
    void everyDeclarationIsWhole();
    void qtParsesWithoutWarning_data();
    void qtParsesWithoutWarning();

    void scrollBarBlock_data();
    void scrollBarBlock();
    void pagesAreTransparentInOneSheetOnly();
    void scrollBarsTakeTheirSize_data();
    void scrollBarsTakeTheirSize();
    void greenLinkOfTheGlobalSheet();

    void pluginRules_data();
    void pluginRules();
    void pluginWidgetsTakeTheirStyle();
    void imagesAreTheClients();

    void catalogueHasItsLength();
    void catalogueHoldsTheseNamesAlone();
    void everySelectorHasTheForm();
    void greenButtonRules_data();
    void greenButtonRules();
    void greenButtonLooks_data();
    void greenButtonLooks();
    void namedStyle_data();
    void namedStyle();
};

void tst_stylesheets::initTestCase()
{
    // Linkers leave out a library of which nothing is used.
    const orvcommonlib library;
    Q_UNUSED(library)
}

void tst_stylesheets::plainText_data()
{
    QTest::addColumn<QString>("sheet");
    for (const QString &sheet : {kScrollBars, kGlobal, kPlugins, kNamedStyles})
        QTest::newRow(qPrintable(sheet)) << sheet;
}

void tst_stylesheets::plainText()
{
    QFETCH(QString, sheet);
    const QByteArray bytes = sheetBytes(sheet);
    QVERIFY(!bytes.isEmpty());
    for (const char byte : bytes)
        QVERIFY(byte == '\n' || (byte >= ' ' && byte <= '~'));
    // An @ would be a reference to a theme value.
    QVERIFY(!bytes.contains('@'));
}

void tst_stylesheets::everyDeclarationIsWhole_data()
{
    plainText_data();
}

void tst_stylesheets::everyDeclarationIsWhole()
{
    // Qt passes over a value that it cannot read, so a slip of the pen would go unnoticed.
    QFETCH(QString, sheet);
    static const QRegularExpression hexColour(QStringLiteral("#\\w+"));
    const QVector<Rule> rules = rulesOf(sheet);
    QCOMPARE(rules.size(), sheetText(sheet).count(QLatin1Char('{')));
    QCOMPARE(rules.size(), sheetText(sheet).count(QLatin1Char('}')));
    for (const Rule &rule : rules) {
        QVERIFY2(!rule.declarations.isEmpty(), qPrintable(rule.selectors.first()));
        for (const QString &value : rule.declarations) {
            QVERIFY2(!value.isEmpty(), qPrintable(rule.selectors.first()));
            QRegularExpressionMatchIterator match = hexColour.globalMatch(value);
            while (match.hasNext())
                QVERIFY2(QColor(match.next().captured()).isValid(), qPrintable(value));
        }
    }
}

void tst_stylesheets::qtParsesWithoutWarning_data()
{
    plainText_data();
}

void tst_stylesheets::qtParsesWithoutWarning()
{
    QFETCH(QString, sheet);
    const LogCapture log;
    QWidget window;
    auto *layout = new QHBoxLayout(&window);
    layout->addWidget(new SharingToolWidget);
    layout->addWidget(new QPushButton);
    layout->addWidget(new QScrollBar(Qt::Vertical));
    window.setStyleSheet(sheetText(sheet));
    window.grab();
    QCOMPARE(log.texts(), QStringList());
}

void tst_stylesheets::scrollBarBlock_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("handle");
    QTest::addColumn<QString>("verticalMargin");
    QTest::newRow("light") << kScrollBars << QStringLiteral("rgba(0, 0, 0, 0.1)")
                           << QStringLiteral("0px 2px 0px 2px");
    QTest::newRow("global") << kGlobal << QStringLiteral("#BDBDBD") << QStringLiteral("0px 2px 0px 2px");
    QTest::newRow("named") << kNamedStyles << QStringLiteral("#E5E5E5") << QStringLiteral("2px 2px 2px 2px");
}

void tst_stylesheets::scrollBarBlock()
{
    QFETCH(QString, sheet);
    QFETCH(QString, handle);
    QFETCH(QString, verticalMargin);
    const auto rule = [sheet](const char *selector) {
        return declarationsFor(sheet, QString::fromLatin1(selector));
    };
    const auto expected = [](const char *text) {
        return declarationsIn(QString::fromLatin1(text));
    };

    Declarations vertical = expected("border: none; background: transparent; width: 10px");
    vertical.insert(QStringLiteral("margin"), verticalMargin);
    QCOMPARE(rule("QScrollBar:vertical"), vertical);
    QCOMPARE(rule("QScrollBar:horizontal"),
             expected("border: none; background: transparent; height: 4px; margin: 0px"));
    Declarations handles = expected("border-radius: 3px; min-height: 20px");
    handles.insert(QStringLiteral("background"), handle);
    QCOMPARE(rule("QScrollBar::handle"), handles);
    QCOMPARE(rule("QScrollBar::handle:vertical"), expected("min-height: 40px"));
    QCOMPARE(rule("QScrollBar::handle:horizontal"), expected("min-width: 20px"));
    QCOMPARE(rule("QScrollBar::add-line"), expected("width: 0px; height: 0px"));
    QCOMPARE(rule("QScrollBar::sub-line"), expected("width: 0px; height: 0px"));

    // The block stands at the head of its sheet.
    const QVector<Rule> head = rulesOf(sheet).mid(0, kScrollBarRules);
    for (const Rule &blockRule : head)
        QVERIFY(blockRule.selectors.first().startsWith(QLatin1String("QScrollBar")));
}

void tst_stylesheets::pagesAreTransparentInOneSheetOnly()
{
    const Declarations transparent{{QStringLiteral("background"), QStringLiteral("transparent")}};
    for (const char *page : {"QScrollBar::add-page", "QScrollBar::sub-page"}) {
        const QString selector = QString::fromLatin1(page);
        QCOMPARE(declarationsFor(kScrollBars, selector), transparent);
        QCOMPARE(declarationsFor(kGlobal, selector), Declarations());
        QCOMPARE(declarationsFor(kNamedStyles, selector), Declarations());
    }
}

void tst_stylesheets::scrollBarsTakeTheirSize_data()
{
    scrollBarBlock_data();
}

void tst_stylesheets::scrollBarsTakeTheirSize()
{
    QFETCH(QString, sheet);
    QScrollBar vertical(Qt::Vertical);
    vertical.setStyleSheet(sheetText(sheet));
    QCOMPARE(vertical.sizeHint().width(), 10);
    QScrollBar horizontal(Qt::Horizontal);
    horizontal.setStyleSheet(sheetText(sheet));
    QCOMPARE(horizontal.sizeHint().height(), 4);
}

void tst_stylesheets::greenLinkOfTheGlobalSheet()
{
    const QString selector =
        namedSelector(QStringLiteral("QPushButton"), QString(), QStringLiteral("QPushButton_GreenLink"));
    QCOMPARE(declarationsFor(kGlobal, selector),
             declarationsIn(QStringLiteral(
                 "background: transparent; border: none; color: rgb(0, 146, 101); text-align: left")));
    QCOMPARE(rulesOf(kGlobal).size(), kScrollBarRules + 1);

    QPushButton button(QStringLiteral("text"));
    button.setProperty(kStyleProperty, QStringLiteral("QPushButton_GreenLink"));
    button.setStyleSheet(sheetText(kGlobal));
    button.ensurePolished();
    QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(0, 146, 101));
}

void tst_stylesheets::pluginRules_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *selector, const char *property, const char *value) {
        QTest::addRow("%s, %s", selector, property)
            << QString::fromLatin1(selector) << QString::fromLatin1(property) << QString::fromLatin1(value);
    };
    row("SharingToolWidget", "qproperty-titleBarContentsMargins", "rect(12 0 6 0)");
    row("SharingToolWidget #okButton", "background", "#009265");
    row("SharingToolWidget #okButton:hover", "background", "#1A9D74");
    row("SharingToolWidget #okButton:disabled", "background", "#155F48");
    row("SharingToolWidget #okButton:disabled", "color", "#959595");
    row("SharingToolWidget QComboBox", "background", "#373737");
    row("LevelIndicator", "min-width", "12px");
    row("LevelIndicator", "max-width", "12px");
    row("LevelIndicator", "min-height", "116px");
    row("LevelIndicator", "max-height", "116px");
    row("RewardListWidget", "background", "#FFFFFF");
    row("TimerToolWidget QToolButton#digitUpButton", "image", "url(:/images/widgets/digit_up.png)");
    row("TimerToolWidget QToolButton#digitDownButton", "image", "url(:/images/widgets/digit_down.png)");
}

void tst_stylesheets::pluginRules()
{
    QFETCH(QString, selector);
    QFETCH(QString, property);
    QFETCH(QString, value);
    QCOMPARE(declarationsFor(kPlugins, selector).value(property), value);
}

void tst_stylesheets::pluginWidgetsTakeTheirStyle()
{
    SharingToolWidget sharing;
    QPushButton okButton(QStringLiteral("OK"), &sharing);
    okButton.setObjectName(QStringLiteral("okButton"));
    QComboBox choice(&sharing);
    LevelIndicator level;
    for (QWidget *widget : {static_cast<QWidget *>(&sharing), static_cast<QWidget *>(&level)}) {
        widget->setStyleSheet(sheetText(kPlugins));
        widget->ensurePolished();
    }
    okButton.ensurePolished();
    choice.ensurePolished();

    QCOMPARE(sharing.titleBarContentsMargins, QRect(12, 0, 6, 0));
    QCOMPARE(level.minimumSize(), QSize(12, 116));
    QCOMPARE(level.maximumSize(), QSize(12, 116));
    okButton.resize(100, 40);
    QCOMPARE(paintedColor(&okButton, {10, 10}), QColor(0x009265));
    okButton.setEnabled(false);
    QCOMPARE(paintedColor(&okButton, {10, 10}), QColor(0x155f48));
    QCOMPARE(okButton.palette().color(QPalette::Disabled, QPalette::ButtonText), QColor(0x959595));
    choice.resize(100, 40);
    QCOMPARE(paintedColor(&choice, {10, 10}), QColor(0x373737));
}

void tst_stylesheets::imagesAreTheClients()
{
    static const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    QRegularExpressionMatchIterator catalogue = url.globalMatch(sheetText(kNamedStyles));
    QVERIFY(catalogue.hasNext());
    while (catalogue.hasNext())
        QVERIFY(catalogue.next().captured(1).startsWith(QLatin1String(":/Images/")));

    static const QRegularExpression place(
        QStringLiteral("^:/(images/TitleBar|images/widgets|componentAudioVideo)/"));
    QRegularExpressionMatchIterator plugins = url.globalMatch(sheetText(kPlugins));
    QVERIFY(plugins.hasNext());
    while (plugins.hasNext())
        QVERIFY(place.match(plugins.next().captured(1)).hasMatch());

    QVERIFY(!sheetText(kGlobal).contains(url));
    QVERIFY(!sheetText(kScrollBars).contains(url));
}

void tst_stylesheets::catalogueHasItsLength()
{
    const int length = sheetText(kNamedStyles).size();
    QVERIFY(qAbs(length - kNamedStylesLength) < kNamedStylesLength / 50);
}

void tst_stylesheets::catalogueHoldsTheseNamesAlone()
{
    const QStringList names = styleNames();
    const QSet<QString> listed(names.cbegin(), names.cend());
    QCOMPARE(listed.size(), 77);

    QSet<QString> found;
    static const QRegularExpression name(QStringLiteral("='([^']*)'"));
    QRegularExpressionMatchIterator match = name.globalMatch(sheetText(kNamedStyles));
    while (match.hasNext())
        found.insert(match.next().captured(1));
    QCOMPARE(found, listed);
}

void tst_stylesheets::everySelectorHasTheForm()
{
    static const QRegularExpression form(
        QStringLiteral("^(Q\\w+)(::(?:drop-down|down-arrow|indicator))?"
                       "((?::(?:hover|pressed|disabled|focus|on|read-only|checked|unchecked|indeterminate))*)"
                       "\\[PropertyStyle_BrixelCam='(\\w+)'\\]$"));
    const QVector<Rule> rules = namedRules();
    QVERIFY(rules.size() > 77);
    for (const Rule &rule : rules) {
        for (const QString &selector : rule.selectors) {
            const QRegularExpressionMatch match = form.match(selector);
            QVERIFY2(match.hasMatch(), qPrintable(selector));
            QCOMPARE(match.captured(1), typeOf(match.captured(4)));
        }
    }
}

void tst_stylesheets::greenButtonRules_data()
{
    QTest::addColumn<QString>("background");
    for (const char *name :
         {"QPushButton_NormalGreenBg", "QPushButton_NormalGreenBg2", "QPushButton_NormalGreenBg3"})
        QTest::newRow(name) << QStringLiteral("#009265");
    QTest::newRow("QPushButton_NormalGreenBg4") << QStringLiteral("#30BA78");
}

void tst_stylesheets::greenButtonRules()
{
    QFETCH(QString, background);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const auto rule = [name](const char *state) {
        return declarationsFor(
            kNamedStyles, namedSelector(QStringLiteral("QPushButton"), QString::fromLatin1(state), name));
    };
    QCOMPARE(rule(""), declarationsIn(QStringLiteral("background: %1; border-width: 0px; border-radius: 3px; "
                                                     "font-size: 16px; color: #fff")
                                          .arg(background)));
    for (const char *state : {":hover", ":pressed", ":disabled"})
        QCOMPARE(rule(state).keys(), QStringList{QStringLiteral("background")});
    if (background != QLatin1String("#009265"))
        return;
    QCOMPARE(rule(":disabled").value(QStringLiteral("background")), QStringLiteral("#98CBBB"));
    QCOMPARE(rule(":hover").value(QStringLiteral("background")), QStringLiteral("#0C8962"));
    QCOMPARE(rule(":pressed").value(QStringLiteral("background")), QStringLiteral("#00835A"));
}

void tst_stylesheets::greenButtonLooks_data()
{
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("normal") << false << false << true << QColor(0x009265);
    QTest::newRow("hovered") << true << false << true << QColor(0x0c8962);
    QTest::newRow("pressed") << true << true << true << QColor(0x00835a);
    QTest::newRow("disabled") << false << false << false << QColor(0x98cbbb);
    QTest::newRow("disabled under the pointer") << true << false << false << QColor(0x98cbbb);
}

void tst_stylesheets::greenButtonLooks()
{
    QFETCH(bool, hovered);
    QFETCH(bool, down);
    QFETCH(bool, enabled);
    QFETCH(QColor, colour);
    for (const char *name :
         {"QPushButton_NormalGreenBg", "QPushButton_NormalGreenBg2", "QPushButton_NormalGreenBg3"}) {
        QPushButton button(QStringLiteral("text"));
        button.setProperty(kStyleProperty, QString::fromLatin1(name));
        button.setStyleSheet(sheetText(kNamedStyles));
        button.resize(120, 40);
        if (hovered)
            movePointerOver(&button);
        button.setDown(down);
        button.setEnabled(enabled);
        QCOMPARE(paintedColor(&button, {10, 20}), colour);
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(Qt::white));
        QCOMPARE(button.font().pixelSize(), 16);
    }
}

void tst_stylesheets::namedStyle_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = styleNames();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_stylesheets::namedStyle()
{
    QFETCH(QString, name);
    const QString selector = namedSelector(typeOf(name), QString(), name);
    QVERIFY(!declarationsFor(kNamedStyles, selector).isEmpty());

    // The sheet as it is, on a real widget in each state that a rule may ask for.
    const LogCapture log;
    const std::unique_ptr<QWidget> widget = styledWidget(name);
    QVERIFY(widget);
    widget->setStyleSheet(sheetText(kNamedStyles));
    widget->resize(120, 60);
    QVERIFY(!widget->grab().isNull());
    movePointerOver(widget.get());
    QVERIFY(!widget->grab().isNull());
    widget->setEnabled(false);
    QVERIFY(!widget->grab().isNull());
    QCOMPARE(log.texts(), QStringList());

    // Qt's own engine finds the widget by this selector, and no other by it.
    const QString marking = selector + QStringLiteral("{ qproperty-accessibleName: chosen; }");
    const std::unique_ptr<QWidget> chosen = styledWidget(name);
    const std::unique_ptr<QWidget> other = styledWidget(name + QLatin1Char('_'));
    for (QWidget *candidate : {chosen.get(), other.get()}) {
        candidate->setStyleSheet(marking);
        candidate->ensurePolished();
    }
    QCOMPARE(chosen->accessibleName(), QStringLiteral("chosen"));
    QCOMPARE(other->accessibleName(), QString());
}

ORV_TEST_MAIN(tst_stylesheets)

#include "tst_stylesheets.moc"
