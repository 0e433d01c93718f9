#include "assistance.h"

#include "basemovedialog.h"
#include "basemovedialogwithbackimage.h"
#include "commonpopupdialog.h"
#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customshadowcombox.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "customwraptexttooltip.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtTest/QTest>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QLabel>

#include <functional>
#include <memory>

using namespace Assistance;
using Make = std::function<QWidget *()>;
Q_DECLARE_METATYPE(Make)

namespace {

// What a client makes of our classes, with a meta-object of its own.
class ClientButton : public CustomToolButton
{
    Q_OBJECT

public:
    using CustomToolButton::CustomToolButton;
};

class ClientToolTip : public customWrapTextToolTip
{
    Q_OBJECT

public:
    using customWrapTextToolTip::customWrapTextToolTip;
};

class NumberedDialog : public CommonPopupDialog
{
public:
    NumberedDialog()
        : CommonPopupDialog(nullptr, QStringLiteral("Numbered"), QSize(200, 100), true, true, false, false,
                            false)
    {
    }
};

QWidget *newLoadingDialog()
{
    return new PopupLoadingDlgWithMask(QSize(200, 200), QSize(100, 100), QStringLiteral("Loading"), nullptr);
}

QWidget *newMessage()
{
    return new PopupDlgWithMask(QString(), QSize(300, 200), 1, 1, 1, 1, QStringLiteral("Title"),
                                QStringLiteral("Content"), QString(), QStringLiteral("OK"), false, false,
                                true, false, nullptr);
}

QWidget *newTips()
{
    return new TipsDlgWithCheckbox(nullptr, QSize(300, 200), QStringLiteral("Title"),
                                   QStringLiteral("Content"), QString(), QStringLiteral("OK"));
}

QWidget *newUpdateTips()
{
    return new OrvUpdateTipDlg(QSize(400, 200), QString(), 1, 1, 1, 1, nullptr, QStringLiteral("Yes"),
                               QStringLiteral("No"), false, true);
}

template<typename Widget>
Make plain()
{
    return [] {
        return new Widget(nullptr);
    };
}

// As any client of Qt may have one: it knows better about picture buttons.
QAccessibleInterface *clientFactory(const QString &className, QObject *object)
{
    return className == QLatin1String("CustomPictureBtn")
               ? new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Dial)
               : nullptr;
}

} // namespace

class tst_AccessibleFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheRole_data();
    void tellsTheRole();
    void tellsTheRoleWhileActive_data() { tellsTheRole_data(); }
    void tellsTheRoleWhileActive();
    void forgetsWhatDied_data() { tellsTheRole_data(); }
    void forgetsWhatDied();
    void interfaceIsInvalidWhileItsWidgetDies();
    void tellsByTypeWhateverCameBefore();
    void leavesOthersOfTheSameBaseToQt();
    void leavesTheClientsOwnFactoryItsWay();
    void maskIsNobody();
};

void tst_AccessibleFactory::tellsTheRole_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("role");
    const auto row = [](const char *name, int role, const Make &make) {
        QTest::newRow(name) << make << role;
    };
    row("HorizontalSlider", QAccessible::Slider, plain<HorizontalSlider>());
    row("NewHorizontalSlider", QAccessible::Slider,
        [] { return new NewHorizontalSlider(QSize(100, 10), QSize(10, 10), false, nullptr); });
    row("CustomSliderBarWidget", QAccessible::Slider, plain<CustomSliderBarWidget>());
    row("CustomShadowCombox", QAccessible::ComboBox, plain<CustomShadowCombox>());
    row("CustomComboxHeader", QAccessible::ButtonDropDown, plain<CustomComboxHeader>());
    row("CustomSlider", QAccessible::Slider, plain<CustomSlider>());
    row("CustomBidirectionSlider", QAccessible::Slider,
        [] { return new CustomBidirectionSlider(6, 24, Qt::blue, nullptr); });
    row("customcombox", QAccessible::ComboBox, plain<customcombox>());
    row("CustomizeIconButton", QAccessible::PushButton,
        [] { return new CustomizeIconButton(QSize(20, 20), QStringLiteral("Add"), 4, nullptr, true); });
    row("CustomPictureBtn", QAccessible::PushButton, plain<CustomPictureBtn>());
    row("CustomPictureBtn(text)", QAccessible::PushButton,
        [] { return new CustomPictureBtn(QStringLiteral("Text"), nullptr); });
    row("CustomPictureBtn(icon, text)", QAccessible::PushButton,
        [] { return new CustomPictureBtn(QIcon(), QStringLiteral("Text"), nullptr); });
    row("CustomToolButton", QAccessible::PushButton,
        [] { return new CustomToolButton(false, nullptr, Bottom); });
    row("CommonPopupDialog", QAccessible::Dialog, [] { return new NumberedDialog; });
    row("PopupDlgWithMask", QAccessible::Dialog, newMessage);
    row("TipsDlgWithCheckbox", QAccessible::Dialog, newTips);
    row("OrvUpdateTipDlg", QAccessible::Dialog, newUpdateTips);
    row("PopupLoadingDlgWithMask", QAccessible::ProgressBar, newLoadingDialog);
    row("BaseMoveDialog, as dialog", QAccessible::Dialog,
        [] { return new BaseMoveDialog(nullptr, true, false, true); });
    row("BaseMoveDialog, as window", QAccessible::Window,
        [] { return new BaseMoveDialog(nullptr, true, false, false); });
    row("BaseMoveDialogWithBackImage", QAccessible::Dialog,
        [] { return new BaseMoveDialogWithBackImage(QString(), 1, 1, 1, 1, true, true, nullptr); });
    row("customWrapTextToolTip", QAccessible::ToolTip, plain<customWrapTextToolTip>());
    row("a client's tool button", QAccessible::PushButton,
        [] { return new ClientButton(false, nullptr, Bottom); });
    row("a client's tool tip", QAccessible::ToolTip, plain<ClientToolTip>());
}

void tst_AccessibleFactory::tellsTheRole()
{
    QFETCH(Make, make);
    const std::unique_ptr<QWidget> widget(make());
    QAccessibleInterface *interface = interfaceOf(widget.get());
    QVERIFY(interface);
    QVERIFY(interface->isValid());
    QCOMPARE(interface->object(), widget.get());
    QTEST(int(interface->role()), "role");
}

// A base class that tells something in its constructor must not leave its own answer behind.
void tst_AccessibleFactory::tellsTheRoleWhileActive()
{
    QFETCH(Make, make);
    const Activity activity;
    const std::unique_ptr<QWidget> widget(make());
    QTEST(int(interfaceOf(widget.get())->role()), "role");
}

void tst_AccessibleFactory::forgetsWhatDied()
{
    QFETCH(Make, make);
    std::unique_ptr<QWidget> widget(make());
    const QAccessible::Id id = QAccessible::uniqueId(interfaceOf(widget.get()));
    QVERIFY(QAccessible::accessibleInterface(id));
    widget.reset();
    QVERIFY(!QAccessible::accessibleInterface(id));
}

void tst_AccessibleFactory::interfaceIsInvalidWhileItsWidgetDies()
{
    auto button = std::make_unique<CustomPictureBtn>();
    QAccessibleInterface *interface = nullptr;
    bool asked = false;
    // Connected before the interface is there, so that it is called before the interface goes.
    connect(button.get(), &QObject::destroyed, this, [&] {
        asked = true;
        QVERIFY(!interface->isValid());
    });
    interface = interfaceOf(button.get());
    QVERIFY(interface->isValid());
    button.reset();
    QVERIFY(asked);
}

void tst_AccessibleFactory::tellsByTypeWhateverCameBefore()
{
    // Each application object brings Qt's answers along, after the library's.
    for (int round = 0; round < 3; ++round) {
        const auto toolTip = std::make_unique<customWrapTextToolTip>();
        QCOMPARE(interfaceOf(toolTip.get())->role(), QAccessible::ToolTip);
    }
}

void tst_AccessibleFactory::leavesOthersOfTheSameBaseToQt()
{
    const customWrapTextToolTip toolTip;
    QDialog dialog;
    QCOMPARE(interfaceOf(&dialog)->role(), QAccessible::Dialog);
    QLabel label(QStringLiteral("text"));
    QCOMPARE(interfaceOf(&label)->role(), QAccessible::StaticText);
    QWidget widget;
    QCOMPARE(interfaceOf(&widget)->role(), QAccessible::Client);
    QObject object;
    QVERIFY(!interfaceOf(&object));
}

void tst_AccessibleFactory::leavesTheClientsOwnFactoryItsWay()
{
    QAccessible::installFactory(clientFactory);
    {
        const customWrapTextToolTip toolTip;
        CustomPictureBtn button;
        QCOMPARE(interfaceOf(&button)->role(), QAccessible::Dial);
    }
    QAccessible::removeFactory(clientFactory);
    CustomPictureBtn button;
    QCOMPARE(interfaceOf(&button)->role(), QAccessible::PushButton);
}

void tst_AccessibleFactory::maskIsNobody()
{
    QWidget window;
    window.resize(100, 100);
    window.show();
    OrvMaskCtrl *control = OrvMaskCtrl::getInstance(&window);
    int owner = 0;
    control->showMasking(&owner);
    QWidget *mask = control->getMaskWidget();
    QVERIFY(mask->isVisible());
    mask->setAccessibleName(QStringLiteral("somebody"));
    QCOMPARE(interfaceOf(mask)->role(), QAccessible::NoRole);
    QVERIFY(stateOf(mask).invisible);
    QCOMPARE(nameOf(mask), QString());
    // To everybody else it is a label like any other.
    QCOMPARE(QLatin1String(mask->metaObject()->className()), QLatin1String("QLabel"));
}

ORV_TEST_MAIN(tst_AccessibleFactory)
#include "tst_accessiblefactory.moc"
