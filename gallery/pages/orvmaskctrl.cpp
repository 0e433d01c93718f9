#include "orvmaskctrl.h"
#include "basemovedialog.h"
#include "pagebuilder.h"
#include "samplewindow.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

constexpr QSize kRemoteSize(380, 250);
constexpr int kButtonHeight = 32;

/// Two owners of the mask: any address of one's own will do for a token.
struct Owners
{
    int first = 0;
    int second = 0;
};

void reportMask(const QString &what)
{
    const QWidget *mask = OrvMaskCtrl::getInstance(nullptr)->getMaskWidget();
    const bool shown = mask != nullptr && mask->isVisible();
    report(QStringLiteral("%1: the mask is %2")
               .arg(what, shown ? QStringLiteral("shown") : QStringLiteral("hidden")));
}

QPushButton *newButton(const QString &text, QWidget *remote, std::function<void(OrvMaskCtrl *)> clicked)
{
    auto *button = new QPushButton(text, remote);
    setGalleryRole(button, "button");
    button->setMinimumHeight(kButtonHeight);
    QObject::connect(button, &QPushButton::clicked, remote, [text, clicked] {
        OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(nullptr);
        if (mask == nullptr)
            return;
        clicked(mask);
        reportMask(text);
    });
    return button;
}

/// The mask lies over the page: what switches it stands in a window of its own.
QWidget *openRemote(Owners *owners, QWidget *mainWindow)
{
    auto *remote = new BaseMoveDialog(mainWindow, true, true, true);
    remote->setAttribute(Qt::WA_DeleteOnClose);
    remote->resize(kRemoteSize);
    QVBoxLayout *layout =
        fillSampleWindow(remote, QStringLiteral("Two owners, one mask"),
                         QStringLiteral("The mask stays as long as one of the owners wants it."));
    auto *grid = new QGridLayout;
    grid->setSpacing(8);
    grid->addWidget(newButton(QStringLiteral("Show for A"), remote,
                              [owners](OrvMaskCtrl *mask) { mask->showMasking(&owners->first); }),
                    0, 0);
    grid->addWidget(newButton(QStringLiteral("Show for B"), remote,
                              [owners](OrvMaskCtrl *mask) { mask->showMasking(&owners->second); }),
                    0, 1);
    grid->addWidget(newButton(QStringLiteral("Hide for A"), remote,
                              [owners](OrvMaskCtrl *mask) { mask->hideMasking(&owners->first); }),
                    1, 0);
    grid->addWidget(newButton(QStringLiteral("Hide for B"), remote,
                              [owners](OrvMaskCtrl *mask) { mask->hideMasking(&owners->second); }),
                    1, 1);
    grid->addWidget(newButton(QStringLiteral("Hide at once (null owner)"), remote,
                              [](OrvMaskCtrl *mask) { mask->hideMasking(nullptr); }),
                    2, 0, 1, 2);
    layout->addLayout(grid);
    QObject::connect(remote, &QObject::destroyed, mainWindow, [owners] {
        OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(nullptr);
        if (mask == nullptr)
            return;
        mask->hideMasking(&owners->first);
        mask->hideMasking(&owners->second);
    });
    remote->moveOver(mainWindow);
    remote->show();
    return remote;
}

void build(PageBuilder &page)
{
    static Owners owners;
    QWidget *mainWindow = page.window();
    page.include("orvmaskctrl.h");

    page.section(
        "Owners",
        "Each dialog that wants the mask registers itself; the mask goes when the last owner has let "
        "go. Try it with two owners, and with a null owner, which hides the mask at once while the "
        "owners stay registered.");
    page.primaryButton("Open the switches", [mainWindow] { openRemote(&owners, mainWindow); });
    page.shot("dialog-orvmaskctrl", [mainWindow] {
        QWidget *remote = openRemote(&owners, mainWindow);
        OrvMaskCtrl::getInstance(mainWindow)->showMasking(&owners.first);
        return remote;
    });

    page.section("The mask's size",
                 "The mask gets the size that its window has when it is made, and keeps it unless it "
                 "is told to follow its window, as it is here.");
    page.checkBox("setFollowsWindow", OrvMaskCtrl::followsWindow(), &OrvMaskCtrl::setFollowsWindow);

    page.section("At the end",
                 "<b>deleteInstance()</b> is a step of shutting down: afterwards getInstance() is null for "
                 "good, and the dialogs do without a mask until the gallery is started again.");
    page.button("deleteInstance()", [] {
        OrvMaskCtrl::deleteInstance();
        report(OrvMaskCtrl::getInstance(nullptr) == nullptr ? "getInstance(): null"
                                                            : "getInstance(): still there");
    });
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::WindowFrame, "OrvMaskCtrl",
                     "Darkens the client's main window while at least one masked dialog is open.", build);

} // namespace
