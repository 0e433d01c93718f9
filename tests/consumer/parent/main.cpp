// A client that builds the library along with itself, and uses what lies within it.
#include <horizontalslider.h>
#include <orvcommonlib.h>

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

#if !defined(PARENT_FLAG) || !defined(PARENT_DEFINITION) || __cplusplus <= 201703L
#    error "The settings of this project are others now."
#endif

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    HorizontalSlider slider;
    slider.setRange(0, 10);
    slider.setValue(7);
    const bool resources = QFile::exists(QStringLiteral(":/qssFromResource/resourceGlobal.qss"));
    return slider.value() == 7 && resources && !totalcommon::version().isEmpty() ? 0 : 1;
}
