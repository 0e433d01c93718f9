#include "basemovedialogwithbackimage.h"
#include "custombidirectionslider.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customshadowcombox.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "lookkinds.h"
#include "newhorizontalslider.h"
#include "orvlook.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "popupmessage.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QMovie>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

/// Counts style sheets that are set, and repaints.
class Watcher : public QObject
{
public:
    using QObject::QObject;

    void watch(QWidget *widget)
    {
        widget->installEventFilter(this);
        const QList<QWidget *> parts = widget->findChildren<QWidget *>();
        for (QWidget *part : parts)
            part->installEventFilter(this);
    }

    int styleChanges = 0;
    int paints = 0;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        styleChanges += event->type() == QEvent::StyleChange ? 1 : 0;
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

const LookKind &kindOfThisRow()
{
    for (const LookKind &kind : lookKinds()) {
        if (qstrcmp(kind.name, QTest::currentDataTag()) == 0)
            return kind;
    }
    Q_UNREACHABLE();
}

void addKinds()
{
    QTest::addColumn<int>("unused");
    for (const LookKind &kind : lookKinds())
        QTest::newRow(kind.name) << 0;
}

const QRegularExpression &lightColors()
{
    static const QRegularExpression colors(
        QStringLiteral("#(FFFFFF|F4F4F4|F5F6F7|333333|1F1F22|666666|78797B|000000|EBECED)"),
        QRegularExpression::CaseInsensitiveOption);
    return colors;
}

} // namespace

/// Widgets of every kind that follow the look.
class tst_Looks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void thereAndBack_data();
    void thereAndBack();
    void newOnesFollow_data();
    void newOnesFollow();
    void shownOnesFollowInOneRepaint_data();
    void shownOnesFollowInOneRepaint();
    void nothingIsRestyledInVain_data();
    void nothingIsRestyledInVain();
    void openListFollows();
    void statesFollow();
    void dialogInItsLoopFollows();
    void changedComesWhenAllAreRestyled();
    void clientMayDestroyWhatFollows();
    void clientMaySwitchWhileOthersFollow();

    void sheetOfTheClientStays_data();
    void sheetOfTheClientStays();
    void headerStylesOfTheClientStay();
    void iconButtonSheetsStay();
    void colorsOfTheClientStay();
    void sheetThatTheClientTookBack();

    void cardOfMessages();
    void darkPictureOfTheClient();
    void picturesWithoutDarkOnesStay();
    void iconsOfTheClient();
    void movie();
};

void tst_Looks::cleanup()
{
    OrvLook::setDark(false);
}

void tst_Looks::thereAndBack_data()
{
    addKinds();
}

void tst_Looks::thereAndBack()
{
    const LookKind &kind = kindOfThisRow();
    const std::unique_ptr<QWidget> widget = kind.make();
    const QStringList sheets = sheetsOf(*widget);
    const QImage picture = pictureOf(widget.get());
    OrvLook::setDark(true);
    QCOMPARE(pictureOf(widget.get()) != picture, kind.changes);
    const QStringList darkSheets = sheetsOf(*widget);
    for (const QString &sheet : darkSheets) {
        const bool isLightOnDark = sheet.contains(QLatin1String("background-color:#4257FF")) ||
                                   sheet.contains(QLatin1String("background-color:#4B66EB")) ||
                                   qstrcmp(kind.name, "tooltip") == 0;
        if (!isLightOnDark)
            QVERIFY2(!sheet.contains(lightColors()), qPrintable(sheet));
    }
    OrvLook::setDark(false);
    QCOMPARE(sheetsOf(*widget), sheets);
    QCOMPARE(pictureOf(widget.get()), picture);
}

void tst_Looks::newOnesFollow_data()
{
    addKinds();
}

void tst_Looks::newOnesFollow()
{
    const LookKind &kind = kindOfThisRow();
    const std::unique_ptr<QWidget> old = kind.make();
    pictureOf(old.get());
    OrvLook::setDark(true);
    const std::unique_ptr<QWidget> fresh = kind.make();
    QCOMPARE(sheetsOf(*old), sheetsOf(*fresh));
    QCOMPARE(pictureOf(old.get()), pictureOf(fresh.get()));
}

void tst_Looks::shownOnesFollowInOneRepaint_data()
{
    addKinds();
}

void tst_Looks::shownOnesFollowInOneRepaint()
{
    const LookKind &kind = kindOfThisRow();
    const std::unique_ptr<QWidget> widget = kind.make();
    widget->setAttribute(Qt::WA_DeleteOnClose, false);
    static_cast<QWidget *>(widget.get())->setVisible(true);
    QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
    QCoreApplication::processEvents();
    Watcher watcher;
    widget->installEventFilter(&watcher);
    OrvLook::setDark(true);
    QCOMPARE(watcher.paints, 0); // half of a change is never on the screen
    if (kind.changes)
        QTRY_VERIFY(watcher.paints > 0);
}

void tst_Looks::nothingIsRestyledInVain_data()
{
    addKinds();
}

void tst_Looks::nothingIsRestyledInVain()
{
    const LookKind &kind = kindOfThisRow();
    const std::unique_ptr<QWidget> widget = kind.make();
    pictureOf(widget.get());
    Watcher watcher;
    watcher.watch(widget.get());
    QTemporaryDir folder;
    const QString theme = folder.filePath(QStringLiteral("theme.ini"));
    QSettings(theme, QSettings::IniFormat).setValue(QStringLiteral("pluginText"), QStringLiteral("#FFFFFE"));
    const QSignalSpy changed(OrvLook::instance(), &OrvLook::changed);
    QVERIFY(OrvLook::setTheme(theme)); // a colour that no widget wears
    QCOMPARE(changed.count(), 1);
    QCOMPARE(watcher.styleChanges, 0);
}

void tst_Looks::openListFollows()
{
    CustomShadowCombox combo(nullptr);
    combo.resize(260, 48);
    combo.addItem(QStringLiteral("row"));
    combo.show();
    QVERIFY(QTest::qWaitForWindowExposed(&combo));
    auto *header = combo.findChild<CustomComboxHeader *>();
    QTest::mouseClick(header, Qt::LeftButton);
    auto *list = combo.findChild<BaseMoveDialogWithBackImage *>();
    QVERIFY(list);
    QTRY_VERIFY(list->isVisible());
    const QImage light = pictureOf(list);
    OrvLook::setDark(true);
    QVERIFY(list->isVisible());
    const QImage dark = pictureOf(list);
    const QPoint middle = list->rect().center();
    QCOMPARE(light.pixelColor(middle), QColor(Qt::white));
    QCOMPARE(dark.pixelColor(middle), OrvLook::color(QStringLiteral("rowGround")));
    OrvLook::setDark(false);
    QCOMPARE(pictureOf(list), light);
}

void tst_Looks::statesFollow()
{
    CustomComboxHeader header(nullptr);
    header.setIconState(true);
    const QString up = header.findChildren<QLabel *>().at(1)->styleSheet();
    OrvLook::setDark(true);
    const QString darkUp = header.findChildren<QLabel *>().at(1)->styleSheet();
    QVERIFY(darkUp != up);
    header.setIconState(false);
    header.setIconState(true);
    QCOMPARE(header.findChildren<QLabel *>().at(1)->styleSheet(), darkUp);
    OrvLook::setDark(false);
    QCOMPARE(header.findChildren<QLabel *>().at(1)->styleSheet(), up);
}

void tst_Looks::dialogInItsLoopFollows()
{
    TipsDlgWithCheckbox dialog(nullptr, QSize(400, 200), QStringLiteral("title"), QStringLiteral("text"),
                               QStringLiteral("check"), QStringLiteral("OK"));
    dialog.setAttribute(Qt::WA_DeleteOnClose, false);
    const QString light = dialog.findChild<QLabel *>()->styleSheet();
    QString dark;
    QTimer::singleShot(0, &dialog, [&] {
        OrvLook::setDark(true);
        dark = dialog.findChild<QLabel *>()->styleSheet();
        dialog.forceToExit();
    });
    dialog.exec();
    QVERIFY(!dark.isEmpty());
    QVERIFY(dark != light);
}

void tst_Looks::changedComesWhenAllAreRestyled()
{
    std::vector<std::unique_ptr<QWidget>> widgets;
    for (const LookKind &kind : lookKinds())
        widgets.push_back(kind.make());
    QList<QStringList> seen;
    connect(OrvLook::instance(), &OrvLook::changed, this, [&] {
        for (const auto &widget : widgets)
            seen << sheetsOf(*widget);
    });
    OrvLook::setDark(true);
    disconnect(OrvLook::instance(), nullptr, this, nullptr);
    QCOMPARE(seen.size(), int(widgets.size()));
    for (size_t i = 0; i < widgets.size(); ++i)
        QCOMPARE(seen.at(int(i)), sheetsOf(*widgets.at(i)));
}

namespace {

/// Calls back at the first change of style.
class AtStyleChange : public QObject
{
public:
    explicit AtStyleChange(std::function<void(QObject *)> call)
        : m_call(std::move(call))
    {
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange && m_call)
            std::exchange(m_call, nullptr)(watched);
        return false;
    }

private:
    std::function<void(QObject *)> m_call;
};

} // namespace

void tst_Looks::clientMayDestroyWhatFollows()
{
    QVector<QPointer<CustomComboxHeader>> headers;
    AtStyleChange destroyer([&headers](QObject *restyled) {
        for (const QPointer<CustomComboxHeader> &header : qAsConst(headers)) {
            if (header != restyled->parent())
                delete header;
        }
    });
    for (int i = 0; i < 8; ++i) {
        headers << new CustomComboxHeader(nullptr);
        pictureOf(headers.last());
        headers.last()->findChild<QLabel *>()->installEventFilter(&destroyer);
    }
    OrvLook::setDark(true);
    QCOMPARE(headers.count(nullptr), 7);
    qDeleteAll(headers);
}

void tst_Looks::clientMaySwitchWhileOthersFollow()
{
    std::vector<std::unique_ptr<CustomComboxHeader>> headers(8);
    for (std::unique_ptr<CustomComboxHeader> &header : headers)
        header = std::make_unique<CustomComboxHeader>(nullptr);
    const QStringList light = sheetsOf(*headers.front());
    AtStyleChange back([](QObject *) { OrvLook::setDark(false); });
    pictureOf(headers.at(4).get());
    headers.at(4)->findChild<QLabel *>()->installEventFilter(&back);
    OrvLook::setDark(true);
    QVERIFY(!OrvLook::isDark());
    for (const auto &header : headers)
        QCOMPARE(sheetsOf(*header), light);
}

void tst_Looks::sheetOfTheClientStays_data()
{
    addKinds();
}

void tst_Looks::sheetOfTheClientStays()
{
    const std::unique_ptr<QWidget> widget = kindOfThisRow().make();
    const QString own = QStringLiteral("QWidget{color:#123456;}");
    widget->setStyleSheet(own);
    const QList<QWidget *> parts = widget->findChildren<QWidget *>();
    for (QWidget *part : parts)
        part->setStyleSheet(own);
    QStringList expected = sheetsOf(*widget);
    OrvLook::setDark(true);
    QCOMPARE(sheetsOf(*widget), expected);
    OrvLook::setDark(false);
    QCOMPARE(sheetsOf(*widget), expected);
}

void tst_Looks::headerStylesOfTheClientStay()
{
    CustomShadowCombox combo(nullptr);
    auto *label = combo.findChild<CustomComboxHeader *>()->findChild<QLabel *>();
    const QString before = label->styleSheet();
    combo.setHeaderStyle(QStringLiteral("QWidget#%1{background:#FFFFFF;}"));
    combo.setHeaderTextStyle(before); // the very text that the library had set
    OrvLook::setDark(true);
    QCOMPARE(combo.findChild<CustomComboxHeader *>()->styleSheet(),
             QStringLiteral("QWidget#CustomComboxHeader{background:#FFFFFF;}"));
    QCOMPARE(label->styleSheet(), before);
}

void tst_Looks::iconButtonSheetsStay()
{
    CustomizeIconButton button(QSize(24, 24), QStringLiteral("text"), 8, nullptr, true);
    const QString text = QStringLiteral("QLabel{color:#333333;}");
    button.setTextStyle(text, text, text, text);
    button.setOveralStyle(text, text, text, text);
    button.setIconImage(QStringLiteral(":/a.png"), QStringLiteral(":/b.png"), QStringLiteral(":/c.png"),
                        QStringLiteral(":/d.png"));
    const QStringList sheets = sheetsOf(button);
    OrvLook::setDark(true);
    QCOMPARE(sheetsOf(button), sheets);
}

void tst_Looks::colorsOfTheClientStay()
{
    HorizontalSlider slider;
    slider.setValue(80);
    slider.setValueColor(QColor(0xAB, 0xAD, 0xBF)); // the colour that it has anyhow
    CustomBidirectionSlider line;
    line.setLineColor(QColor(0x4B, 0x66, 0xEB)); // likewise
    NewHorizontalSlider other(QSize(206, 14), QSize(14, 14), false, nullptr);
    other.setValue(80);
    other.setValueColor(Qt::red);
    CustomPictureBtn button(QImage(), QStringLiteral("text"), 0, nullptr, false);
    button.setFlat(true);
    button.resize(60, 20);
    button.setFontColor(QColor(0xFF, 0x4D, 0x4D));
    button.setCustomText(QStringLiteral("text"), QRect(0, 0, 60, 20));
    const QImage picture = pictureOf(&button);
    OrvLook::setDark(true);
    QCOMPARE(line.lineColor(), QColor(0x4B, 0x66, 0xEB));
    QCOMPARE(pictureOf(&slider).pixelColor(40, 7), QColor(0xAB, 0xAD, 0xBF));
    QCOMPARE(pictureOf(&other).pixelColor(40, 7), QColor(Qt::red));
    QCOMPARE(pictureOf(&button), picture);
}

void tst_Looks::sheetThatTheClientTookBack()
{
    // A client keeps what a label wears, marks it for a while, and gives it back.
    CustomComboxHeader header(nullptr);
    auto *label = header.findChild<QLabel *>();
    const QString light = label->styleSheet();
    label->setStyleSheet(QStringLiteral("color:red;"));
    OrvLook::setDark(true);
    label->setStyleSheet(light);
    OrvLook::setDark(false);
    OrvLook::setDark(true);
    QVERIFY(label->styleSheet() != light);
    OrvLook::setDark(false);
    QCOMPARE(label->styleSheet(), light);
}

void tst_Looks::cardOfMessages()
{
    const auto wearsDarkCard = [](const PopupDlgWithMask &dialog) {
        return !sheetsOf(dialog)
                    .filter(QStringLiteral(":/orvcommonlib/pictures/message_bg_dark.png"))
                    .isEmpty();
    };
    PopupDlgWithMask before{PopupMessage()};
    QVERIFY(!wearsDarkCard(before));
    OrvLook::setDark(true);
    QVERIFY(wearsDarkCard(before));
    QVERIFY(wearsDarkCard(PopupDlgWithMask{PopupMessage()}));
    OrvLook::setDark(false);
    QVERIFY(!wearsDarkCard(before));
}

void tst_Looks::darkPictureOfTheClient()
{
    const QTemporaryDir folder;
    const QString light = folder.filePath(QStringLiteral("ground.png"));
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(Qt::yellow);
    QVERIFY(picture.save(light));
    BaseMoveDialogWithBackImage dialog(light, 4, true, true, nullptr);
    dialog.resize(100, 60);
    PopupDlgWithMask message(light, QSize(432, 232), 16, 16, 16, 16, {}, {}, {}, {}, false, false, true,
                             false, nullptr);
    OrvLook::setDark(true);
    QCOMPARE(pictureOf(&dialog).pixelColor(50, 30), QColor(Qt::yellow));
    QCOMPARE(pictureOf(&message).pixelColor(5, 5), QColor(Qt::yellow));

    OrvLook::setDark(false);
    picture.fill(Qt::darkBlue);
    QVERIFY(picture.save(folder.filePath(QStringLiteral("ground_dark.png"))));
    OrvLook::setDark(true);
    QCOMPARE(pictureOf(&dialog).pixelColor(50, 30), QColor(Qt::darkBlue));
    QCOMPARE(pictureOf(&message).pixelColor(5, 5), QColor(Qt::darkBlue));
    OrvLook::setDark(false);
    QCOMPARE(pictureOf(&dialog).pixelColor(50, 30), QColor(Qt::yellow));
    QCOMPARE(pictureOf(&message).pixelColor(5, 5), QColor(Qt::yellow));
}

void tst_Looks::picturesWithoutDarkOnesStay()
{
    CustomToolButton button(false, nullptr, Bottom);
    button.updateImage(QStringLiteral(":/n.png"), QStringLiteral(":/c.png"), QStringLiteral(":/h.png"),
                       QStringLiteral(":/d.png"));
    OrvLook::setDark(true);
    for (const char *path : {"url(:/n.png)", "url(:/c.png)", "url(:/h.png)", "url(:/d.png)"})
        QVERIFY(button.styleSheet().contains(QLatin1String(path)));
}

void tst_Looks::iconsOfTheClient()
{
    const QString icon = QStringLiteral(":/resources/common_icons/close.png");
    CustomizeIconButton button(QSize(24, 24), QStringLiteral("text"), 8, nullptr, true);
    auto *label = button.findChild<QLabel *>();
    button.setIconImage(icon, icon, icon, icon);
    const QString light = label->styleSheet();
    OrvLook::setDark(true);
    QVERIFY(label->styleSheet().contains(QLatin1String(":/resources/common_icons/close_dark.png")));
    OrvLook::setDark(false);
    QCOMPARE(label->styleSheet(), light);
}

void tst_Looks::movie()
{
    PopupLoadingDlgWithMask dialog(QSize(200, 160), QSize(96, 100), QStringLiteral("text"), nullptr);
    dialog.setAttribute(Qt::WA_DeleteOnClose, false);
    auto *label = dialog.findChild<QLabel *>();
    const QPointer<QMovie> light = label->movie();
    light->setParent(label);
    dialog.show();
    QCOMPARE(light->state(), QMovie::Running);
    OrvLook::setDark(true);
    QVERIFY(!light);
    QVERIFY(label->movie()->fileName().endsWith(QLatin1String("connecting_dark.gif")));
    QCOMPARE(label->movie()->state(), QMovie::Running);
    QCOMPARE(label->movie()->parent(), label);
    QMovie own(QStringLiteral(":/surface/resources/surface/live/connecting.gif"));
    label->setMovie(&own);
    OrvLook::setDark(false);
    QCOMPARE(label->movie(), &own);
}

ORV_TEST_MAIN(tst_Looks)

#include "tst_looks.moc"
