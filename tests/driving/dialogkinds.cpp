#include "basemovedialog.h"
#include "basemovedialogwithbackimage.h"
#include "commonpopupdialog.h"
#include "customwraptexttooltip.h"
#include "framelesshelper.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "scene.h"
#include "tipsdlgwithcheckbox.h"
#include "values.h"

#include <QtGui/QMovie>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace Driving {

namespace {

using Own = std::function<void(QWidget *, quint8, quint8)>;

constexpr QSize kSize(300, 240);

QString image()
{
    return QStringLiteral(":/images/images/combox/popup_bg.png");
}

template<typename Class, typename Function>
Own own(Function function)
{
    return [function](QWidget *widget, quint8 how, quint8 much) {
        function(static_cast<Class *>(widget), how, much);
    };
}

/// What every dialog takes that can be dragged.
QVector<Own> dragging()
{
    return {
        own<BaseMoveDialog>([](auto *dialog, quint8 how, quint8) { dialog->setCanMove(how % 4 != 0); }),
        own<BaseMoveDialog>(
            [](auto *dialog, quint8 how, quint8) { dialog->setWidgetResizable(how % 2 == 0); }),
        own<BaseMoveDialog>([](auto *dialog, quint8 how, quint8 much) {
            dialog->setRectOfCanDrag(QRect(0, 0, much, how * 10));
        }),
        own<BaseMoveDialog>([](auto *dialog, quint8 how, quint8 much) {
            QRect room(0, 0, 400 + much, 300 + how);
            dialog->setRectOfCanMove(how % 4 == 0 ? nullptr : &room);
        }),
        own<BaseMoveDialog>([](auto *dialog, quint8 how, quint8 much) {
            dialog->setRectOfCanResize(how % 2 == 0, Values::anyInt(much), how % 4 < 2);
        }),
        own<BaseMoveDialog>(
            [](auto *dialog, quint8, quint8 much) { dialog->setWidgetTitleHeight(Values::anyInt(much)); }),
        own<BaseMoveDialog>(
            [](auto *dialog, quint8 how, quint8) { dialog->setEnableRightBottomResizeArea(how % 2 == 0); }),
        own<BaseMoveDialog>([](auto *dialog, quint8 how, quint8) {
            dialog->moveOver(how % 3 == 0 ? nullptr : dialog->parentWidget());
        }),
        own<BaseMoveDialog>(
            [](auto *dialog, quint8 how, quint8) { dialog->setSystemMoveResize(how % 3 == 0); }),
        own<BaseMoveDialog>([](auto *dialog, quint8, quint8) { dialog->show(); }),
        own<QWidget>([](QWidget *dialog, quint8 how, quint8) {
            const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
            if (!buttons.isEmpty())
                buttons.at(how % buttons.size())->click();
        }),
        own<QWidget>([](QWidget *dialog, quint8, quint8) {
            const QList<QCheckBox *> boxes = dialog->findChildren<QCheckBox *>();
            for (QCheckBox *box : boxes)
                box->click();
        }),
    };
}

/// Dialogs come and go while the scene keeps them.
template<typename Dialog>
Dialog *prepared(Dialog *dialog, quint8 how)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose, how % 8 == 7);
    dialog->setCanMove(true);
    return dialog;
}

void askForMask(QWidget *dialog)
{
    dialog->setProperty("drivenMask", true);
}

Kind masked()
{
    Kind kind{"PopupDlgWithMask",
              [](QWidget *parent, quint8 how) {
                  PopupMessage message;
                  message.size = kSize;
                  message.title = Values::anyText(how);
                  message.useMask = true;
                  message.modal = how % 4 == 1;
                  message.dialogWindow = how % 2 == 0;
                  for (int i = how % 4; i > 0 && how % 8 > 4; --i)
                      message.pages.append({image(), Values::anyText(how), QStringLiteral("page")});
                  return prepared(new PopupDlgWithMask(message, parent), how);
              },
              dragging(),
              {},
              {},
              {}};
    kind.own << own<PopupDlgWithMask>([](auto *dialog, quint8, quint8) {
        const QPointer<QWidget> alive(dialog);
        askForMask(dialog);
        dialog->show(true);
    }) << own<PopupDlgWithMask>([](auto *dialog, quint8, quint8) { dialog->forceToExit(); })
             << own<PopupDlgWithMask>(
                    [](auto *dialog, quint8, quint8 much) { dialog->setContent(Values::anyText(much)); })
             << own<PopupDlgWithMask>([](auto *dialog, quint8, quint8 much) {
                    dialog->setConfirmBtnText(Values::anyText(much));
                });
    kind.exec = [](QWidget *widget, quint8 how) {
        auto *dialog = static_cast<PopupDlgWithMask *>(widget);
        askForMask(dialog);
        if (how % 4 == 0) {
            QPoint pos(how, how);
            dialog->execWithPos(pos);
        } else {
            dialog->exec();
        }
    };
    return kind;
}

Kind common()
{
    Kind kind{"CommonPopupDialog",
              [](QWidget *parent, quint8 how) {
                  return prepared(new CommonPopupDialog(parent, Values::anyText(how), QSize(200, 150),
                                                        how % 2 == 0, true, how % 4 < 2, how % 16 == 0,
                                                        how % 8 < 4),
                                  how);
              },
              dragging(),
              [](QWidget *dialog, quint8) { static_cast<CommonPopupDialog *>(dialog)->exec(); },
              {},
              {}};
    kind.own << own<CommonPopupDialog>([](auto *dialog, quint8, quint8) {
        dialog->show();
    }) << own<CommonPopupDialog>([](auto *dialog, quint8 how, quint8) { dialog->setModal(how % 8 == 0); })
             << own<CommonPopupDialog>([](auto *dialog, quint8, quint8) { dialog->exitEventLoop(); });
    return kind;
}

Kind tips()
{
    Kind kind{"TipsDlgWithCheckbox",
              [](QWidget *parent, quint8 how) {
                  const QString text = Values::anyText(how);
                  auto *dialog = how % 2 == 0
                                     ? new TipsDlgWithCheckbox(parent, kSize, text, text, text, text)
                                     : new TipsDlgWithCheckbox(parent, kSize, text,
                                                               QVector<QString>(how % 5, text), text, text);
                  return prepared(dialog, how);
              },
              dragging(),
              [](QWidget *dialog, quint8) { static_cast<TipsDlgWithCheckbox *>(dialog)->exec(); },
              {},
              {}};
    kind.own << own<TipsDlgWithCheckbox>([](auto *dialog, quint8, quint8) { dialog->forceToExit(); })
             << own<TipsDlgWithCheckbox>(
                    [](auto *dialog, quint8 how, quint8) { dialog->setCheckboxState(how % 2 == 0); })
             << own<TipsDlgWithCheckbox>(
                    [](auto *dialog, quint8, quint8 much) { dialog->setContent(Values::anyText(much)); });
    return kind;
}

Kind update()
{
    Kind kind{"OrvUpdateTipDlg",
              [](QWidget *parent, quint8 how) {
                  const QString text = Values::anyText(how);
                  return prepared(new OrvUpdateTipDlg(kSize, image(), 8, 8, 8, 8, parent, text, text,
                                                      how % 2 == 0, how % 4 < 2),
                                  how);
              },
              dragging(),
              {},
              {},
              {}};
    kind.own << own<OrvUpdateTipDlg>([](auto *dialog, quint8, quint8 much) {
        dialog->setContentTips(Values::anyText(much));
    }) << own<OrvUpdateTipDlg>([](auto *dialog, quint8, quint8 much) {
        dialog->setNewVersionLink(Values::anyText(much));
    });
    return kind;
}

QWidget *newLoadingDialog(QWidget *parent, quint8 how)
{
    auto *dialog = new PopupLoadingDlgWithMask(kSize, QSize(96, 120), Values::anyText(how), parent);
    dialog->findChild<QLabel *>()->movie()->setParent(parent); // is left to the client
    return prepared(dialog, how);
}

QWidget *newMovedWindow(QWidget *parent, quint8 how)
{
    auto *window = new QWidget(parent, Qt::Window);
    window->resize(200, 150);
    auto *helper = new FramelessHelper(window);
    helper->activateOn(window);
    helper->setRubberBandOnMove(how % 2 == 0);
    helper->setRubberBandOnResize(how % 4 < 2);
    return window;
}

QVector<Own> helperDoings()
{
    const auto helper = [](const QWidget *window) {
        return window->findChild<FramelessHelper *>();
    };
    return {
        own<QWidget>(
            [=](auto *window, quint8 how, quint8) { helper(window)->setRubberBandOnMove(how % 2 == 0); }),
        own<QWidget>(
            [=](auto *window, quint8 how, quint8) { helper(window)->setRubberBandOnResize(how % 2 == 0); }),
        own<QWidget>(
            [=](auto *window, quint8 how, quint8) { helper(window)->setWidgetMovable(how % 4 != 0); }),
        own<QWidget>(
            [=](auto *window, quint8 how, quint8) { helper(window)->setWidgetResizable(how % 4 != 0); }),
        own<QWidget>([=](auto *window, quint8, quint8 much) { helper(window)->setBorderWidth(much); }),
        own<QWidget>([=](auto *window, quint8, quint8 much) { helper(window)->setTitleHeight(much); }),
        own<QWidget>([=](auto *window, quint8, quint8) { helper(window)->removeFrom(window); }),
        own<QWidget>([=](auto *window, quint8, quint8) { helper(window)->activateOn(window); }),
        own<QWidget>([=](auto *window, quint8, quint8) { window->show(); }),
    };
}

} // namespace

QVector<Kind> dialogKinds()
{
    return {
        {"BaseMoveDialog",
         [](QWidget *parent, quint8 how) {
             return prepared(new BaseMoveDialog(parent, true, how % 2 == 0, how % 4 < 2), how);
         },
         dragging(),
         {},
         {},
         {}},
        {"BaseMoveDialogWithBackImage",
         [](QWidget *parent, quint8 how) {
             return prepared(new BaseMoveDialogWithBackImage(image(), how % 20, true, how % 2 == 0, parent),
                             how);
         },
         dragging(),
         {},
         {},
         {}},
        common(),
        masked(),
        tips(),
        update(),
        {"PopupLoadingDlgWithMask", &newLoadingDialog, dragging(), {}, {}, {}},
        {"FramelessHelper", &newMovedWindow, helperDoings(), {}, {}, {}},
        {"customWrapTextToolTip",
         [](QWidget *parent, quint8 how) {
             auto *tip =
                 how % 2 == 0
                     ? new customWrapTextToolTip(parent)
                     : new customWrapTextToolTip(how % 4 == 1 ? customWrapTextToolTip::DirectionLeft
                                                              : customWrapTextToolTip::DirectionBottom,
                                                 how, parent, how / 4);
             return tip;
         },
         {own<customWrapTextToolTip>(
              [](auto *tip, quint8, quint8 much) { tip->setText(Values::anyText(much)); }),
          own<QWidget>([](QWidget *tip, quint8, quint8) { tip->show(); })},
         {},
         {},
         {}},
    };
}

} // namespace Driving
