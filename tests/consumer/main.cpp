// Uses the library as a client does: through its installed headers and its exported symbols alone.
#include <basemovedialog.h>
#include <customshadowcombox.h>
#include <framelesshelper.h>
#include <horizontalslider.h>
#include <orvcommonlib.h>
#include <orvcommonlib_version.h>
#include <orvresloader.h>
#include <popupdlgwithmask.h>
#include <qhotkey.h>

#include <QtCore/QFile>
#include <QtCore/QResource>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QImageReader>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

/// Whether the classes are as large in the library as they were when this program was compiled.
bool layoutsHold();

namespace {

int failures = 0;

void check(bool holds, const char *what)
{
    if (holds)
        return;
    qCritical("does not hold: %s", what);
    ++failures;
}

} // namespace

#define CHECK(condition) check(condition, #condition)

/// A dialog of the client's own, with signals of its own.
class ClientDialog : public BaseMoveDialog
{
    Q_OBJECT

public:
    explicit ClientDialog(QWidget *parent)
        : BaseMoveDialog(parent, true, true, false)
    {
        connect(this, &BaseMoveDialog::sig_doubleclickCanDragRect, this, &ClientDialog::titleDoubleClicked);
    }

Q_SIGNALS:
    void titleDoubleClicked();
};

static void checkResources()
{
    CHECK(QFile::exists(QStringLiteral(":/qssFromResource/resourceGlobal.qss")));
    OrvResourceLoader loader;
    CHECK(!loader.loadQssFile(QStringLiteral(":/qssFromResource/resourceGlobal.qss")).isEmpty());
    const OrvResourceLoader copy = loader;
    loader = copy;
}

static void checkHelpers()
{
    CHECK(totalcommon::generateMd5(QStringLiteral("abc")) ==
          QLatin1String("900150983cd24fb0d6963f7d28e17f72"));
    CHECK(totalcommon::version() == QLatin1String(ORVCOMMONLIB_VERSION_STRING));
    orvcommonlib first;
    const orvcommonlib second = first;
    first = second;
    first = orvcommonlib();
}

static void checkDerivedDialog()
{
    QWidget window;
    ClientDialog dialog(&window);
    CHECK(dialog.metaObject()->superClass() == &BaseMoveDialog::staticMetaObject);
    CHECK(qobject_cast<BaseMoveDialog *>(static_cast<QObject *>(&dialog)) == &dialog);
    CHECK(dialog.inherits("BaseMoveDialog"));

    int told = 0;
    QObject::connect(&dialog, &ClientDialog::titleDoubleClicked, &dialog, [&told] { ++told; });
    Q_EMIT dialog.sig_doubleclickCanDragRect();
    CHECK(told == 1);

    FramelessHelper helper(nullptr);
    helper.activateOn(&window);
    helper.removeFrom(&window);
}

static void checkMaskedMessage()
{
    QWidget window;
    window.resize(800, 600);
    window.show();
    PopupDlgWithMask dialog(QString(), QSize(400, 300), 8, 8, 8, 8, QStringLiteral("title"),
                            QStringLiteral("content"), QStringLiteral("note"), QStringLiteral("confirm"),
                            true, false, false, false, &window);
    int closings = 0;
    QObject::connect(&dialog, &PopupDlgWithMask::closeMsgBox, &dialog, [&closings] { ++closings; });
    QTimer::singleShot(0, &dialog, [&dialog] {
        const auto buttons = dialog.findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->text() == QLatin1String("confirm"))
                button->click();
        }
    });
    CHECK(dialog.exec() == PopupDlgWithMask::Confirmed);
    CHECK(closings == 1);
}

static void checkControls()
{
    HorizontalSlider slider;
    slider.setRange(0, 10);
    slider.setValue(7);
    CHECK(slider.value() == 7);
    const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&slider);
    CHECK(told && told->role() == QAccessible::Slider);

    QWidget window;
    auto *comboBox = new CustomShadowCombox(&window);
    comboBox->addItem(QStringLiteral("first"), false, false);
    comboBox->addItem(QStringLiteral("second"), false, false);
    comboBox->setCurrentIndex(1);
    CHECK(comboBox->count() == 2);
    CHECK(comboBox->currentIndex() == 1);
}

// Linked, or in a file of resources.
static void checkPictures()
{
    const QStringList expected = totalcommon::clientPictures();
    CHECK(!expected.isEmpty());
#ifdef CLIENT_PICTURES
    CHECK(totalcommon::missingClientPictures() == expected);
    CHECK(QResource::registerResource(QStringLiteral(CLIENT_PICTURES)));
#endif
    CHECK(totalcommon::missingClientPictures().isEmpty());
    CHECK(QImageReader(QStringLiteral(":/surface/resources/surface/common/close.png")).size() ==
          QSize(20, 20));
}

static void checkHotkeys()
{
    const QHotkey hotkey;
    CHECK(!hotkey.property("registered").toBool());
    CHECK(hotkey.metaObject()->indexOfSignal("activated()") >= 0);
    QHotkey::NativeShortcut shortcut(3, 5);
    const QHotkey::NativeShortcut copy = shortcut;
    shortcut = QHotkey::NativeShortcut();
    CHECK(copy.isValid() && !shortcut.isValid() && copy != shortcut);
    CHECK(qHash(copy) == (3U ^ 5U));
    CHECK(qstrcmp(logQHotkey().categoryName(), "QHotkey") == 0);
}

int main(int argc, char **argv)
{
    checkResources();
    const QApplication application(argc, argv);
    checkHelpers();
    checkDerivedDialog();
    checkMaskedMessage();
    checkControls();
    checkPictures();
    checkHotkeys();
    CHECK(layoutsHold());
    return failures == 0 ? 0 : 1;
}

#include "main.moc"
