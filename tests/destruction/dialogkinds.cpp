#include "basemovedialog.h"
#include "basemovedialogwithbackimage.h"
#include "commonpopupdialog.h"
#include "framelesshelper.h"
#include "kinds.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "steps.h"
#include "tipsdlgwithcheckbox.h"

#include <QtGui/QMovie>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>

namespace Destruction {

namespace {

constexpr QSize kSize(300, 240);

QString image()
{
    return QStringLiteral(":/images/images/combox/popup_bg.png");
}

/// A dialog that destroys itself when it closes would not see its second closing.
template<typename Dialog>
Dialog *keptOnClose(Dialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    return dialog;
}

template<typename Dialog>
Dialog *draggable(Dialog *dialog)
{
    dialog->setFixedSize(200, 150);
    dialog->setCanMove(true);
    dialog->setRectOfCanDrag(QRect(0, 0, 200, 40));
    dialog->setWidgetResizable(true);
    return dialog;
}

template<typename Dialog>
void execute(QObject *object)
{
    static_cast<Dialog *>(object)->exec();
}

void executeAtPos(QObject *object)
{
    QPoint pos(30, 30);
    static_cast<PopupDlgWithMask *>(object)->execWithPos(pos);
}

QVector<Step> maskedLife()
{
    const Step showMasked = step<PopupDlgWithMask>("show(bool)", [](auto *dialog) { dialog->show(true); });
    const Step force = step<PopupDlgWithMask>("force", [](auto *dialog) { dialog->forceToExit(); });
    return life(dragging() +
                QVector<Step>{showMasked, force, showMasked, clickButton(0), showMasked, clickButton(1)} +
                runs("exec()", &execute<PopupDlgWithMask>) + runs("execWithPos()", &executeAtPos));
}

QObjectList maskLabel(const QObject * /*dialog*/)
{
    return {OrvMaskCtrl::getInstance(nullptr)->getMaskWidget()};
}

QVector<Step> tipLife()
{
    return life(
        dragging() +
        QVector<Step>{clickButton(0), show(),
                      step<QObject>("tick", [](QObject *tip) { tip->findChild<QCheckBox *>()->click(); }),
                      clickButton(1), show(),
                      step<TipsDlgWithCheckbox>("force", [](auto *tip) { tip->forceToExit(); })} +
        runs("exec()", &execute<TipsDlgWithCheckbox>));
}

QObject *newLoadingDialog(Surroundings &in)
{
    auto *dialog = new PopupLoadingDlgWithMask(kSize, QSize(96, 120), QString(), in.parent);
    dialog->findChild<QLabel *>()->movie()->setParent(in.window); // is left to the client
    return draggable(keptOnClose(dialog));
}

QObject *newHelper(Surroundings &in)
{
    auto *window = new QWidget(in.parent, Qt::Window);
    window->resize(200, 150);
    window->show();
    in.parent = window;
    auto *helper = new FramelessHelper(window);
    helper->activateOn(window);
    return helper;
}

/// The life of the window that the helper moves.
QVector<Step> helperLife()
{
    QVector<Step> steps = dragging() + QVector<Step>{plainEvent("leave", QEvent::Leave)} + closing();
    for (Step &step : steps)
        step.action = [action = step.action](QObject *helper) {
            action(helper->parent());
        };
    steps << step<QObject>("name", [](QObject *helper) { helper->setObjectName(QStringLiteral("name")); });
    return steps;
}

QObjectList parentOf(const QObject *object)
{
    return {object->parent()};
}

} // namespace

QVector<Kind> dialogKinds()
{
    const auto newMessage = [](Surroundings &in) {
        return draggable(new PopupDlgWithMask(image(), kSize, 8, 8, 8, 8, QString(), QString(), QString(),
                                              QString(), true, false, true, false, in.parent));
    };
    const auto newPages = [](Surroundings &in) {
        QVector<QString> texts(3);
        return draggable(new PopupDlgWithMask(image(), kSize, 8, 8, 8, 8, QString(), texts, texts, texts,
                                              QString(), QString(), true, false, true, true, in.parent));
    };
    const auto newCommon = [](Surroundings &in) {
        return draggable(
            new CommonPopupDialog(in.parent, QString(), QSize(200, 150), true, true, false, false, true));
    };
    const auto newTip = [](Surroundings &in) {
        return draggable(keptOnClose(
            new TipsDlgWithCheckbox(in.parent, kSize, QString(), QString(), QString(), QString())));
    };
    const auto newLines = [](Surroundings &in) {
        return draggable(keptOnClose(
            new TipsDlgWithCheckbox(in.parent, kSize, QString(), QVector<QString>(4), QString(), QString())));
    };
    const auto newUpdate = [](Surroundings &in) {
        return draggable(keptOnClose(
            new OrvUpdateTipDlg(kSize, image(), 8, 8, 8, 8, in.parent, QString(), QString(), false, true)));
    };
    return {
        {"BaseMoveDialog",
         [](Surroundings &in) { return draggable(new BaseMoveDialog(in.parent, true, true, true)); },
         life(dragging()),
         {}},
        {"BaseMoveDialogWithBackImage",
         [](Surroundings &in) {
             return draggable(new BaseMoveDialogWithBackImage(image(), 8, true, true, in.parent));
         },
         life(dragging()),
         {}},
        {"CommonPopupDialog",
         newCommon,
         life(dragging() + QVector<Step>{clickButton(0)} + runs("exec()", &execute<CommonPopupDialog>)),
         {}},
        {"PopupDlgWithMask", newMessage, maskedLife(), &maskLabel},
        {"PopupDlgWithMask with pages", newPages, maskedLife(), &maskLabel},
        {"TipsDlgWithCheckbox", newTip, tipLife(), {}},
        {"TipsDlgWithCheckbox with lines", newLines, tipLife(), {}},
        {"OrvUpdateTipDlg",
         newUpdate,
         life(dragging() +
              QVector<Step>{clickButton(0), show(), clickButton(1), show(), clickButton(2), show()}),
         {}},
        {"PopupLoadingDlgWithMask", &newLoadingDialog, life(dragging()), {}},
        {"FramelessHelper", &newHelper, helperLife(), &parentOf},
    };
}

} // namespace Destruction
