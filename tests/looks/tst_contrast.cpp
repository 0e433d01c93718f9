#include "customcomboxheader.h"
#include "custompicturebtn.h"
#include "customshadowcombox.h"
#include "customwraptexttooltip.h"
#include "orvlook.h"
#include "orvresloader.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "popupmessage.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QMap>
#include <QtCore/QTextStream>
#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <cmath>
#include <memory>

namespace {

constexpr int kScale = 4;          // strokes are then wider than what smoothing touches
constexpr double kText = 4.5;      // the least contrast in the dark look
constexpr double kGray = 3;        // the same for what is gray or disabled
constexpr double kRounding = 0.01; // of the figures that are kept

enum State { Normal, Hover, Pressed, Disabled };

struct Text
{
    const char *name; // "<what it stands in>: <text>"
    State state;
    double light; // the contrast in the light look, kept
    double dark;  // the least one in the dark look
};

constexpr Text kTexts[] = {
    {"message: title", Normal, 11.41, kText},
    {"message: content", Normal, 11.72, kText},
    {"message: note", Normal, 5.74, kText},
    {"message: confirm", Normal, 4.77, kText},
    {"message: confirm", Hover, 4.77, kText},
    {"message: confirm", Pressed, 4.77, kText},
    {"pages: title", Normal, 11.14, kText},
    {"pages: page", Normal, 12.63, kText},
    {"pages: line", Normal, 3.54, kText},
    {"tips: title", Normal, 16.44, kText},
    {"tips: content", Normal, 4.36, kText},
    {"tips: check", Normal, 21.00, kText},
    {"tips: confirm", Normal, 5.20, kText},
    {"tips: confirm", Hover, 3.68, kText},
    {"tips: confirm", Pressed, 6.16, kText},
    {"lines: first", Normal, 4.36, kText},
    {"lines: fourth", Normal, 4.36, kText},
    {"update: title", Normal, 16.44, kText},
    {"update: content", Normal, 4.36, kText},
    {"update: link", Normal, 5.20, kText},
    {"update: cancel", Normal, 16.44, kText},
    {"update: cancel", Hover, 15.08, kText},
    {"update: cancel", Pressed, 13.90, kText},
    {"update: confirm", Normal, 5.20, kText},
    {"update: confirm", Hover, 3.68, kText},
    {"update: confirm", Pressed, 6.16, kText},
    {"loading: caption", Normal, 5.74, kText},
    {"combo box: plain", Normal, 12.63, kText},
    {"combo box: plain", Hover, 11.49, kText},
    {"combo box: chosen", Normal, 4.77, kText},
    {"combo box: chosen", Hover, 4.34, kText},
    {"combo box: gray", Normal, 2.14, kGray},
    {"combo box: gray", Hover, 1.95, kGray},
    {"header: text", Normal, 16.44, kText},
    {"picture button: text", Normal, 3.27, kText},
    {"tooltip: text", Normal, 12.23, kText},
    {"named: QLabel_Title", Normal, 15.72, kText},
    {"named: QLabel_8B8B8BBgColor", Normal, 3.41, kText},
    {"named: QLabel_GrayColor", Normal, 3.41, kText},
    {"named: QLabel_GreenColor", Normal, 3.96, kText},
    {"named: QLabel_MainFrontTextCr", Disabled, 2.14, kGray},
    {"named: QLabel_IMInsertButtonStyle", Normal, 15.72, kText},
    {"named: QLabel_IMInsertButtonStyle", Hover, 3.73, kText},
    {"named: QLabel_IMInsertButtonStyle", Disabled, 1.97, kGray},
    {"named: QLineEdit_LoginInput", Normal, 21.00, kText},
    {"named: QLineEdit_LoginInput", Disabled, 1.97, kGray},
    {"named: QLineEdit_TransBgNoneBorder8B8B8BFColor", Normal, 21.00, kText},
    {"named: QComboBox_IMNormalInput", Normal, 15.72, kText},
    {"named: QComboBox_IMNormalInput", Disabled, 1.97, kGray},
    {"named: QCheckBox_Normal", Normal, 15.72, kText},
    {"named: QCheckBox_Normal", Disabled, 2.14, kGray},
    {"named: QPushButton_NormalGreenBg", Normal, 3.96, kText},
    {"named: QPushButton_NormalGreenBg", Hover, 4.40, kText},
    {"named: QPushButton_NormalGreenBg", Pressed, 4.78, kText},
    {"named: QPushButton_NormalGreenBg", Disabled, 1.81, kGray},
    {"named: QPushButton_NormalGreenBg4", Normal, 2.49, kText},
    {"named: QPushButton_NormalGreenBg4", Hover, 2.93, kText},
    {"named: QPushButton_NormalGreenBg4", Pressed, 3.44, kText},
    {"named: QPushButton_NormalGreenBg4", Disabled, 1.50, kGray},
    {"named: QPushButton_IMButton_Style1", Normal, 3.96, kText},
    {"named: QPushButton_IMButton_Style1", Disabled, 1.81, kGray},
    {"named: QPushButton_IMButton_Style2", Normal, 3.96, kText},
    {"named: QPushButton_IMButton_Style2", Hover, 4.15, kText},
    {"named: QPushButton_IMButton_Style2", Pressed, 4.11, kText},
    {"named: QPushButton_IMButton_Style2", Disabled, 1.81, kGray},
    {"named: QPushButton_IMButton_Style4", Normal, 15.72, kText},
    {"named: QPushButton_IMButton_Style4", Hover, 15.06, kText},
    {"named: QPushButton_IMButton_Style4", Pressed, 13.79, kText},
    {"named: QPushButton_IMButton_Style4", Disabled, 1.97, kGray},
    {"named: QPushButton_GreenLink", Normal, 3.96, kText},
    {"named: QPushButton_GreenLink", Disabled, 1.81, kGray},
    {"named: QPushButton_ForgotPassWordLink", Normal, 3.41, kText},
};

QString str(const char *text)
{
    return QString::fromLatin1(text);
}

PopupMessage messageValue()
{
    PopupMessage message;
    message.title = str("title");
    message.content = str("content");
    message.noteText = str("note");
    message.confirmText = str("confirm");
    message.useMask = false;
    message.modal = false;
    return message;
}

std::unique_ptr<QWidget> pagesDialog()
{
    PopupMessage message = messageValue();
    message.size = QSize(332, 425);
    message.pages = {{QString(), str("page"), str("line")}};
    return std::make_unique<PopupDlgWithMask>(message);
}

std::unique_ptr<QWidget> updateDialog()
{
    auto dialog = std::make_unique<OrvUpdateTipDlg>(QSize(420, 220), QString(), 10, 10, 10, 10, nullptr,
                                                    str("confirm"), str("cancel"), false, true);
    dialog->setTitle(str("title"));
    dialog->setContentTips(str("content"));
    dialog->setNewVersionLink(str("link"));
    return dialog;
}

std::unique_ptr<QWidget> loadingDialog()
{
    auto dialog =
        std::make_unique<PopupLoadingDlgWithMask>(QSize(200, 160), QSize(96, 103), str("caption"), nullptr);
    auto *label = dialog->findChild<QLabel *>();
    label->movie()->setParent(label); // is left to the client
    return dialog;
}

std::unique_ptr<QWidget> comboBox()
{
    auto combo = std::make_unique<CustomShadowCombox>(nullptr);
    combo->resize(260, 48);
    combo->addItem(str("plain"));
    combo->addItem(str("chosen"));
    combo->addItem(str("gray"), true, false);
    combo->setCurrentIndex(1);
    return combo;
}

// What has no ground of its own lies on that of dialogs.
std::unique_ptr<QWidget> onGround(QWidget *widget, const QString &colorName)
{
    auto ground = std::make_unique<QWidget>();
    ground->setAutoFillBackground(true);
    QPalette palette = ground->palette();
    palette.setColor(QPalette::Window, OrvLook::color(colorName));
    ground->setPalette(palette);
    auto *layout = new QVBoxLayout(ground.get());
    layout->addWidget(widget);
    return ground;
}

QWidget *header()
{
    auto *header = new CustomComboxHeader(nullptr);
    header->setText(str("text"));
    return header;
}

QWidget *pictureButton()
{
    auto *button = new CustomPictureBtn(QImage(), str("text"), 4, nullptr, false);
    button->setStyleSheet(str("QPushButton{border:none;background:transparent;}"));
    button->setCustomText(str("text"), QRect(4, 0, 80, 24));
    button->setFixedSize(90, 24);
    return button;
}

QString namedSheet()
{
    OrvResourceLoader loader;
    loader.loadThemeFile(OrvLook::isDark() ? str(":/orvcommonlib/themes/dark.ini")
                                           : str(":/orvcommonlib/themes/light.ini"));
    return loader.loadQssFile(str(":/orvcommonlib/sheets/resourceGeneratedStyle_BrixelCam.qss"));
}

QWidget *plainWidgetFor(const QString &style)
{
    const QString type = style.section(QLatin1Char('_'), 0, 0);
    if (type == QLatin1String("QPushButton"))
        return new QPushButton(style);
    if (type == QLatin1String("QLineEdit"))
        return new QLineEdit(style);
    if (type == QLatin1String("QCheckBox"))
        return new QCheckBox(style);
    if (type == QLatin1String("QLabel"))
        return new QLabel(style);
    auto *combo = new QComboBox;
    combo->addItem(style);
    return combo;
}

std::unique_ptr<QWidget> namedWidget(const QString &style)
{
    QWidget *widget = plainWidgetFor(style);
    widget->setProperty("PropertyStyle_BrixelCam", style);
    widget->setStyleSheet(namedSheet());
    return onGround(widget, str("paperGround"));
}

std::unique_ptr<QWidget> made(const QString &kind, const QString &text)
{
    if (kind == QLatin1String("message"))
        return std::make_unique<PopupDlgWithMask>(messageValue());
    if (kind == QLatin1String("pages"))
        return pagesDialog();
    if (kind == QLatin1String("tips"))
        return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(400, 200), str("title"), str("content"),
                                                     str("check"), str("confirm"));
    if (kind == QLatin1String("lines"))
        return std::make_unique<TipsDlgWithCheckbox>(
            nullptr, QSize(400, 240), str("title"),
            QVector<QString>{str("first"), str("second"), str("third"), str("fourth")}, str("check"),
            str("confirm"));
    if (kind == QLatin1String("update"))
        return updateDialog();
    if (kind == QLatin1String("loading"))
        return loadingDialog();
    if (kind == QLatin1String("combo box"))
        return comboBox();
    if (kind == QLatin1String("header"))
        return onGround(header(), str("dialogGround"));
    if (kind == QLatin1String("picture button"))
        return onGround(pictureButton(), str("dialogGround"));
    if (kind == QLatin1String("tooltip")) {
        auto tip = std::make_unique<customWrapTextToolTip>(nullptr);
        tip->setText(text);
        return tip;
    }
    return namedWidget(text);
}

QString textOf(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    if (const auto *picture = qobject_cast<const CustomPictureBtn *>(widget))
        return picture->customText();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->text();
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->text();
    const auto *combo = qobject_cast<const QComboBox *>(widget);
    return combo ? combo->currentText() : QString();
}

// The last one: the text of the current row stands in the header, too.
QWidget *carrierOf(const QWidget &window, const QString &text)
{
    QWidget *carrier = nullptr;
    const QList<QWidget *> parts = window.findChildren<QWidget *>();
    for (QWidget *part : parts) {
        if (textOf(part) == text)
            carrier = part;
    }
    return carrier;
}

void bringInto(State state, QWidget *carrier)
{
    const bool isRow = qstrcmp(carrier->parentWidget()->metaObject()->className(), "CustomComboxItem") == 0;
    if (state == Hover && isRow) {
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(carrier->parentWidget(), &enter);
    }
    carrier->setAttribute(Qt::WA_UnderMouse, state == Hover);
    if (state == Hover) { // which a push button believes only when the pointer moves
        const QPoint centre = carrier->rect().center();
        QMouseEvent move(QEvent::MouseMove, centre, carrier->mapToGlobal(centre), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(carrier, &move);
    }
    if (auto *button = qobject_cast<QAbstractButton *>(carrier))
        button->setDown(state == Pressed);
    carrier->setEnabled(state != Disabled);
}

double luminance(QRgb color)
{
    const auto linear = [](int level) {
        const double part = level / 255.0;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

double contrastOf(QRgb one, QRgb other)
{
    const double lighter = qMax(luminance(one), luminance(other));
    const double darker = qMin(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

// What is painted at the carrier's place, magnified, over white: the desktop may have any colour.
QImage pictureAt(QWidget *carrier)
{
    QWidget *window = carrier->window();
    QImage picture(window->size() * kScale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(kScale);
    picture.fill(Qt::white);
    window->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren | QWidget::DrawWindowBackground);
    const QRect place(carrier->mapTo(window, QPoint()) * kScale, carrier->size() * kScale);
    return picture.copy(place);
}

/// The ground is what covers most, of several the brightest; the text's colour is a colour that covers something, and
/// differs most from it.
double contrastIn(const QImage &picture)
{
    QMap<QRgb, int> pixels;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++pixels[picture.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto color = pixels.cbegin(); color != pixels.cend(); ++color)
        ground = *color >= pixels.value(ground) ? color.key() : ground;
    constexpr int kFewest = 24; // of a stroke
    double contrast = 1;
    for (auto color = pixels.cbegin(); color != pixels.cend(); ++color) {
        if (*color >= kFewest)
            contrast = qMax(contrast, contrastOf(ground, color.key()));
    }
    return contrast;
}

double contrastOf(const Text &text)
{
    const QString name = str(text.name);
    const QString words = name.section(str(": "), 1);
    const std::unique_ptr<QWidget> widget = made(name.section(str(": "), 0, 0), words);
    QWidget *carrier = carrierOf(*widget, words);
    if (!carrier)
        return 0;
    QWidget *window = carrier->window();
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->setVisible(true);
    QCoreApplication::processEvents();
    bringInto(text.state, carrier);
    return contrastIn(pictureAt(carrier));
}

const char *const kStateNames[] = {"normal", "hover", "pressed", "disabled"};

} // namespace

/// How well texts stand out from their ground, as far as a picture of them tells.
class tst_Contrast : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void contrast_data();
    void contrast();
};

void tst_Contrast::initTestCase()
{
    QCursor::setPos(qApp->primaryScreen()->geometry().bottomRight()); // what lies under it would be hovered
}

void tst_Contrast::cleanup()
{
    OrvLook::setDark(false);
}

void tst_Contrast::contrast_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Text &text : kTexts)
        QTest::addRow("%s, %s", text.name, kStateNames[text.state]) << index++;
}

void tst_Contrast::contrast()
{
    QFETCH(int, index);
    const Text &text = kTexts[index];
    const double light = contrastOf(text);
    QVERIFY2(light >= text.light - kRounding, qPrintable(QString::number(light)));
    OrvLook::setDark(true);
    const double dark = contrastOf(text);
    QVERIFY2(dark >= text.dark, qPrintable(QString::number(dark)));
}

ORV_TEST_MAIN(tst_Contrast)

#include "tst_contrast.moc"
