#include "customcombox.h"
#include "customshadowcombox.h"
#include "customtoolbutton.h"
#include "orvmaskctrl.h"
#include "scene.h"
#include "soak.h"
#include "widgets/shadowcombotesting.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

namespace {

using namespace Driving;

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Opens a dialog as its users do, and closes it in one way or another.
void openDialog(const Kind &kind, QWidget *window, quint8 how)
{
    const QPointer<QWidget> dialog(kind.make(window, how));
    const auto close = [dialog, how] {
        settle();
        if (!dialog)
            return;
        if (how % 2 == 0)
            dialog->hide();
        else
            dialog->close();
    };
    if (kind.exec && how % 3 != 0) {
        QTimer::singleShot(0, dialog, close);
        constexpr quint8 kNotAtPlace = 1; // each exec at a place leaves its loop to the process, on purpose
        kind.exec(dialog, kNotAtPlace);
    } else {
        dialog->show();
        close();
    }
    settle();
    delete dialog;
}

void openLists(QWidget *window)
{
    ShadowComboTesting::Combo shadowCombo(window);
    shadowCombo.add(12);
    class OpenCombo : public customcombox
    {
    public:
        using customcombox::customcombox;
        using customcombox::hidePopup;
        using customcombox::showPopup;
    } combo(window);
    combo.addItems({QStringLiteral("a"), QStringLiteral("b")});
    QWidget panel(window, Qt::Tool);
    CustomToolButton button(window);
    button.setRightClickWidget(&panel, true);
    shadowCombo.show();
    combo.show();
    button.show();
    shadowCombo.showPopup();
    settle();
    shadowCombo.hidePopup();
    combo.showPopup();
    settle();
    combo.hidePopup();
    button.showRightClickWidget();
    settle();
    panel.hide();
    settle();
}

} // namespace

void Soak::openAndCloseEverything(quint8 how)
{
    const LogCapture quiet;
    OrvMaskCtrl::setFollowsWindow(true);
    QWidget window;
    window.resize(500, 400);
    window.show();
    const QVector<Kind> dialogs = dialogKinds();
    for (const Kind &kind : dialogs)
        openDialog(kind, &window, how);
    openLists(&window);
    const QVector<Kind> controls = controlKinds();
    for (const Kind &kind : controls) {
        const std::unique_ptr<QWidget> control(kind.make(&window, how));
        control->show();
        settle();
    }
    quiet.lines();
}
