// A skin is a folder with three drawings: groove.svg, handle.svg and zero.svg. See them in skin/, and slider.qrc.
#include <horizontalslider.h>
#include <newhorizontalslider.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    auto *temperature = new HorizontalSlider(&window, /*bidirectional*/ true, /*zeroFlag*/ true);
    temperature->setSkinPath(":/skin/");
    temperature->setGrooveHeight(
        10); // groove.svg is drawn into 206 x 10, the room above and below the line included
    temperature->setHandleSize(QSize(14, 14));
    temperature->setValueColor(QColor("#E4572E")); // of the groove, from the centre to the handle
    temperature->setRange(-50, 50);
    temperature->setValue(20);

    // The second kind has a size of its own, which groove.svg fills, or groove_bidirection.svg where that is asked for.
    auto *loudness = new NewHorizontalSlider(QSize(206, 14), QSize(14, 14), /*bidirectional*/ false, &window);
    loudness->setSkinPath(":/skin/");
    loudness->setValueColor(QColor("#E4572E"));
    loudness->setValue(70);

    auto *number = new QLabel(QString::number(temperature->value()), &window);
    QObject::connect(temperature, &HorizontalSlider::valueChanged, number, qOverload<int>(&QLabel::setNum));
    temperature->setAccessibleName("Temperature");
    loudness->setAccessibleName("Loudness");
    for (QWidget *slider : {static_cast<QWidget *>(temperature), static_cast<QWidget *>(loudness)})
        slider->setFocusPolicy(Qt::StrongFocus); // and it answers keys

    QFormLayout layout(&window);
    layout.setContentsMargins(24, 24, 24, 24);
    layout.setSpacing(16);
    layout.addRow("Temperature", temperature);
    layout.addRow("", number);
    layout.addRow("Loudness", loudness);
    window.show();
    return application.exec();
}
