// A tool button shows its panels; the panels are the client's, and of any kind.
#include <customtoolbutton.h>
#include <newhorizontalslider.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

// A child of the window: it can lie anywhere over it. Its size counts when it is shown for the first time.
static QWidget *newPanel(QWidget *window, QWidget *content)
{
    auto *panel = new QFrame(window);
    panel->setStyleSheet(
        "QFrame#panel{background:palette(base);border:1px solid palette(mid);border-radius:8px;}");
    panel->setObjectName("panel");
    panel->setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->addWidget(content);
    panel->adjustSize();
    panel->hide();
    return panel;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    auto *brush = new CustomToolButton(/*uncheckOnHide*/ true, &window, Bottom);
    brush->updateImage(":/brush.svg", ":/brush_checked.svg", ":/brush.svg", ":/brush.svg");
    brush->setFixedSize(40, 40);
    brush->setAccessibleName("Brush");

    auto *width = new NewHorizontalSlider(&window);
    width->setAccessibleName("Width");
    brush->setClickWidget(newPanel(&window, width),
                          /*takeFocus*/ true); // closes when the focus goes elsewhere
    brush->setHoverWidget(newPanel(&window, new QLabel("Click: width. Right click: help.")), false);
    auto *help = new QLabel("Press to begin a line,\nhold Shift to keep it straight.");
    brush->setRightClickWidget(newPanel(&window, help), true); // also opens after a press of a second

    QVBoxLayout layout(&window);
    layout.addWidget(brush, 0, Qt::AlignHCenter | Qt::AlignTop);
    window.resize(480, 240);
    window.show();
    return application.exec();
}
