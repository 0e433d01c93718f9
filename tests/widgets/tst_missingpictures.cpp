#include "commonpopupdialog.h"
#include "pictures.h"
#include "popupdlgwithmask.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QResource>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

enum class State { Rest, Hovered, Pressed };

std::unique_ptr<QWidget> newDialog(const QString &kind)
{
    const QString text = QStringLiteral("text");
    if (kind == QLatin1String("message"))
        return std::make_unique<PopupDlgWithMask>(QString(), QSize(300, 150), 8, 8, 8, 8, text, text, text,
                                                  text, false, false, true, false, nullptr);
    if (kind == QLatin1String("tips"))
        return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(340, 210), text, text, text, text);
    return std::make_unique<CommonPopupDialog>(nullptr, text, QSize(300, 150), true, true, true, false, true);
}

/// The button that has no text of its own.
QPushButton *closeButtonOf(const QWidget *dialog)
{
    const auto buttons = dialog->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text().isEmpty())
            return button;
    }
    return nullptr;
}

void bring(QPushButton *button, State state)
{
    button->setAttribute(Qt::WA_UnderMouse, state != State::Rest);
    button->setDown(state == State::Pressed);
}

/// What is seen of the button alone.
QImage pictureOf(QWidget *button)
{
    QImage picture(button->size() * button->devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(button->devicePixelRatioF());
    picture.fill(Qt::transparent);
    button->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}

bool isTransparent(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).alpha() > 0)
                return false;
        }
    }
    return true;
}

} // namespace

Q_DECLARE_METATYPE(State)

/// The close buttons of dialogs without and with the client's pictures.
class tst_MissingPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void closeButtonIsTransparent_data();
    void closeButtonIsTransparent();
    void closeButtonShowsItsText();
    void closeButtonShowsItsPicture_data();
    void closeButtonShowsItsPicture();
    void onlyTheHoveredPictureIsMissing();
    void clientsSheetDraws_data();
    void clientsSheetDraws();
    void themeDraws();
};

void tst_MissingPictures::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_MissingPictures::closeButtonIsTransparent_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<State>("state");
    for (const char *kind : {"message", "tips", "plain"}) {
        const QString name = QString::fromLatin1(kind);
        QTest::newRow(qPrintable(name)) << name << State::Rest;
        QTest::newRow(qPrintable(name + QStringLiteral(", hovered"))) << name << State::Hovered;
        QTest::newRow(qPrintable(name + QStringLiteral(", pressed"))) << name << State::Pressed;
    }
}

void tst_MissingPictures::closeButtonIsTransparent()
{
    QFETCH(QString, kind);
    QFETCH(State, state);
    const ExpectedWarnings warnings("Could not create pixmap from");
    const std::unique_ptr<QWidget> dialog = newDialog(kind);
    dialog->setVisible(true);
    QPushButton *button = closeButtonOf(dialog.get());
    bring(button, state);
    QVERIFY(isTransparent(pictureOf(button)));
}

void tst_MissingPictures::closeButtonShowsItsText()
{
    const ExpectedWarnings warnings("Could not create pixmap from");
    const std::unique_ptr<QWidget> dialog = newDialog(QStringLiteral("message"));
    dialog->setVisible(true);
    QPushButton *button = closeButtonOf(dialog.get());
    button->setText(QStringLiteral("x"));
    QVERIFY(!isTransparent(pictureOf(button)));
}

void tst_MissingPictures::closeButtonShowsItsPicture_data()
{
    closeButtonIsTransparent_data();
}

void tst_MissingPictures::closeButtonShowsItsPicture()
{
    QFETCH(QString, kind);
    QFETCH(State, state);
    QVERIFY(QResource::registerResource(QStringLiteral(ORV_CLIENT_PICTURES)));
    if (kind == QLatin1String("plain"))
        qApp->setStyleSheet(QStringLiteral("#PopupDialogCloseButton{background:transparent;"
                                           "border-image:url(:/resources/common_icons/close.png);}"
                                           "#PopupDialogCloseButton:pressed{background:#FF0000;}"));
    const std::unique_ptr<QWidget> dialog = newDialog(kind);
    dialog->setVisible(true);
    QPushButton *button = closeButtonOf(dialog.get());
    QPushButton stock(button->parentWidget());
    stock.setObjectName(button->objectName());
    stock.setFocusPolicy(button->focusPolicy());
    stock.setStyleSheet(button->styleSheet());
    stock.setGeometry(button->geometry());
    stock.show();
    bring(button, state);
    bring(&stock, state);
    QVERIFY(!isTransparent(pictureOf(button)));
    QCOMPARE(differingPixels(pictureOf(button), pictureOf(&stock)), 0);
    QVERIFY(QResource::unregisterResource(QStringLiteral(ORV_CLIENT_PICTURES)));
}

void tst_MissingPictures::onlyTheHoveredPictureIsMissing()
{
    QVERIFY(QResource::registerResource(QStringLiteral(ORV_CLIENT_PICTURES)));
    const ExpectedWarnings warnings("Could not create pixmap from");
    const std::unique_ptr<QWidget> dialog = newDialog(QStringLiteral("message"));
    QPushButton *button = closeButtonOf(dialog.get());
    button->setStyleSheet(QStringLiteral(
        "QPushButton{background:transparent;border-image:url(:/resources/common_icons/close.png);}"
        "QPushButton:hover{background:transparent;border-image:url(:/nowhere.png);}"));
    dialog->setVisible(true);
    QVERIFY(!isTransparent(pictureOf(button)));
    bring(button, State::Hovered);
    QVERIFY(isTransparent(pictureOf(button)));
    QVERIFY(QResource::unregisterResource(QStringLiteral(ORV_CLIENT_PICTURES)));
}

void tst_MissingPictures::clientsSheetDraws_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("a ground") << QStringLiteral("QPushButton{background:#00FF00; border:none;}");
    QTest::newRow("a border") << QStringLiteral(
        "QPushButton{background:transparent; border:2px solid #00FF00;}");
}

void tst_MissingPictures::clientsSheetDraws()
{
    QFETCH(QString, sheet);
    const ExpectedWarnings warnings("Could not create pixmap from");
    const std::unique_ptr<QWidget> dialog = newDialog(QStringLiteral("message"));
    closeButtonOf(dialog.get())->setStyleSheet(sheet);
    dialog->setVisible(true);
    const QImage picture = pictureOf(closeButtonOf(dialog.get()));
    QCOMPARE(picture.pixelColor(1, picture.height() / 2), QColor(Qt::green));
}

void tst_MissingPictures::themeDraws()
{
    qApp->setStyleSheet(
        QStringLiteral("QPushButton#PopupDialogCloseButton{background-color:#00FF00; border:none;}"));
    CommonPopupDialog dialog(nullptr, QString(), QSize(300, 150), true, true, false, false, true);
    dialog.QWidget::show();
    const QImage picture = pictureOf(closeButtonOf(&dialog));
    QCOMPARE(picture.pixelColor(1, picture.height() / 2), QColor(Qt::green));
}

ORV_TEST_MAIN(tst_MissingPictures)

#include "tst_missingpictures.moc"
