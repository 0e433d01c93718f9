#include "accessibletree.h"
#include "mainwindow.h"
#include "pagebuilder.h"
#include "pageview.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr QSize kWindowSize(720, 560);

void openWindow(MainWindow *mainWindow)
{
    auto *window = new QWidget(mainWindow, Qt::Window);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QStringLiteral("Accessibility"));
    window->resize(kWindowSize);
    auto *tree = new AccessibleTree(window);
    auto *layout = new QVBoxLayout(window);
    layout->addWidget(tree);
    tree->setRoot(mainWindow->currentView());
    QObject::connect(mainWindow, &MainWindow::pageOpened, tree, &AccessibleTree::setRoot);
    window->show();
    report("a window follows the pages");
}

AccessibleTree *addTree(PageBuilder &page, MainWindow *mainWindow)
{
    page.section(
        "The tree of a page",
        "Each control with the role, the name, the value and the states that a screen reader tells its "
        "user, and the actions by which it is operated without mouse and keyboard.");
    const QVector<const GalleryPage *> pages = GalleryPage::all();
    QStringList titles;
    for (const GalleryPage *one : pages)
        titles << one->title();
    auto *tree = new AccessibleTree(page.widget());
    const int first = titles.indexOf(QStringLiteral("HorizontalSlider"));
    page.choice("Page", titles, first,
                [tree, pages, mainWindow](int index) { tree->setRoot(mainWindow->view(pages.at(index))); });
    page.wideExample(tree);
    tree->setRoot(mainWindow->view(pages.at(first)));
    page.button("In a window that follows the pages", [mainWindow] { openWindow(mainWindow); });
    return tree;
}

void addOperation(PageBuilder &page, AccessibleTree *tree)
{
    page.section("Operate the current row", "What the control answers is told in the panel.");
    QComboBox *actions = page.choice("Action", {}, -1);
    QLineEdit *value = page.lineEdit("Value", "");
    const auto offer = [tree, actions, value] {
        actions->clear();
        QAccessibleInterface *interface = tree->currentInterface();
        if (interface == nullptr)
            return;
        if (interface->actionInterface() != nullptr)
            actions->addItems(interface->actionInterface()->actionNames());
        if (interface->valueInterface() != nullptr)
            value->setText(interface->valueInterface()->currentValue().toString());
    };
    QObject::connect(tree, &AccessibleTree::currentItemChanged, actions, offer);
    page.button("Do it", [tree, actions] {
        QAccessibleInterface *interface = tree->currentInterface();
        if (interface == nullptr || interface->actionInterface() == nullptr)
            report("there is nothing to be done");
        else
            interface->actionInterface()->doAction(actions->currentText());
    });
    page.button("Set it", [tree, value] {
        QAccessibleInterface *interface = tree->currentInterface();
        if (interface == nullptr || interface->valueInterface() == nullptr)
            report("there is no value");
        else
            interface->valueInterface()->setCurrentValue(value->text());
    });
}

void build(PageBuilder &page)
{
    auto *mainWindow = qobject_cast<MainWindow *>(page.window());
    addOperation(page, addTree(page, mainWindow));
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Services, "Accessibility",
    "What assistive technology is told of the library's widgets: any page as a screen reader sees it.",
    build);

} // namespace
