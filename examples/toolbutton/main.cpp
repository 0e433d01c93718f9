// A tool button shows its panels; the panels are the client's, and of any kind.
#include <customtoolbutton.h>
#include <newhorizontalslider.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

static CustomToolButton *newTool(const QString &picture, const QString &name, QWidget *window)
{
    auto *tool = new CustomToolButton(/*uncheckOnHide*/ true, window, Bottom);
    tool->updateImage(picture + ".svg", picture + "_checked.svg", picture + ".svg", picture + ".svg");
    tool->setFixedSize(40, 40);
    tool->setAccessibleName(name);
    return tool;
}

// A child of the window: it can lie anywhere over it. The size that it has counts when it is shown for the first time.
static QWidget *newPanel(QWidget *window, QWidget *content)
{
    auto *panel = new QFrame(window);
    panel->setStyleSheet(
        "QFrame#panel{background:palette(base);border:1px solid palette(mid);border-radius:8px;}");
    panel->setObjectName("panel");
    auto *layout = new QHBoxLayout(panel);
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
    CustomToolButton *brush = newTool(":/brush", "Brush", &window);
    CustomToolButton *eraser = newTool(":/eraser", "Eraser", &window);

    // Any mouse button opens the panel of a click. With the focus it closes when that goes elsewhere.
    auto *width = new NewHorizontalSlider(&window);
    width->setAccessibleName("Width");
    brush->setClickWidget(newPanel(&window, width), /*takeFocus*/ true);

    // A press of a second opens that of a right click, too; that one stays until it is hidden.
    eraser->setHoverWidget(newPanel(&window, new QLabel("Erases what you drag over")), /*takeFocus*/ false);
    auto *everything = newPanel(&window, new QLabel("Click again to erase everything"));
    eraser->setRightClickWidget(everything, /*takeFocus*/ true);
    QObject::connect(eraser, &QToolButton::clicked, everything, &QWidget::hide);

    QHBoxLayout layout(&window);
    layout.setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    layout.addWidget(brush);
    layout.addWidget(eraser);
    window.resize(480, 240);
    window.show();
    return application.exec();
}
