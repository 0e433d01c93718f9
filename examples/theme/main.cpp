// A theme at run time: the library's widgets follow by themselves, the client's own with a style sheet of the same names.
#include <customshadowcombox.h>
#include <newhorizontalslider.h>
#include <orvlook.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

static void styleOwnWidgets()
{
    const QString sheet("QWidget#window{background:%1;}"
                        "QPushButton{background:%2;color:%3;border-radius:6px;padding:8px 16px;}");
    qApp->setStyleSheet(sheet.arg(OrvLook::color("dialogGround").name(),
                                  OrvLook::color("primaryGround").name(),
                                  OrvLook::color("primaryText").name()));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QObject::connect(OrvLook::instance(), &OrvLook::changed, styleOwnWidgets);
    styleOwnWidgets();

    QWidget window;
    window.setObjectName("window");
    QVBoxLayout layout(&window);
    layout.setContentsMargins(32, 32, 32, 32);
    layout.setSpacing(16);
    const auto addButton = [&](const QString &name, auto setLook) {
        auto *button = new QPushButton(name, &window);
        QObject::connect(button, &QPushButton::clicked, setLook);
        layout.addWidget(button);
    };
    addButton("Light", [] { OrvLook::setDark(false); });
    addButton("Dark", [] { OrvLook::setDark(true); });
    addButton("Meadow", [] { OrvLook::setTheme(":/meadow.ini"); }); // what it does not name stays light

    auto *slider = new NewHorizontalSlider(&window);
    slider->setAccessibleName("Volume");
    slider->setValue(60);
    layout.addWidget(slider, 0, Qt::AlignHCenter);
    auto *combo = new CustomShadowCombox(&window);
    combo->setAccessibleName("Camera");
    combo->setItems({"Front camera", "Desk camera"});
    combo->setCurrentIndex(0);
    combo->setFixedSize(260, 48);
    combo->setHeaderStyle("QWidget#%1{border:1px solid gray;border-radius:8px;}");
    layout.addWidget(combo, 0, Qt::AlignHCenter);
    window.show();
    return application.exec();
}
