#include "custompicturebtn.h"
#include "customwraptexttooltip.h"
#include "testmain.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

int roleOf(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? int(interface->role()) : -1;
}

/// A client that is constructed and asked before main() begins, and destroyed after it has ended.
struct StaticClient
{
    int argc = 1;
    char name[16] = "statics";
    char *argv[2] = {name, nullptr};
    QApplication application{argc, argv};
    CustomPictureBtn button;
    customWrapTextToolTip toolTip;
    int buttonRole = roleOf(&button);
    int toolTipRole = roleOf(&toolTip);
};

StaticClient client;

} // namespace

class tst_AccessibleStatics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areToldBeforeMain();
};

void tst_AccessibleStatics::areToldBeforeMain()
{
    QCOMPARE(client.buttonRole, int(QAccessible::Button));
    QCOMPARE(client.toolTipRole, int(QAccessible::ToolTip));
    QCOMPARE(roleOf(&client.button), int(QAccessible::Button));
}

int main(int argc, char **argv)
{
    tst_AccessibleStatics test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_accessiblestatics.moc"
