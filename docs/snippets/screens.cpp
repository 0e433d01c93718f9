#include "orvqtcompat.h"

#include <QtWidgets/QApplication>

namespace screens_snippets {

//! [main]
int runClient(int argc, char **argv)
{
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    orvqt::enableHighDpi(); // before the application is created; with Qt 6 there is nothing to do
    QApplication application(argc, argv);
    //! [main]
    return QApplication::exec();
}

} // namespace screens_snippets
