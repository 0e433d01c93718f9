// Rows that are there but cannot be had are gray: a click on one is told, and chooses nothing.
#include <customshadowcombox.h>
#include <popupdlgwithmask.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    auto *combo = new CustomShadowCombox(&window);
    auto *answer = new QLabel("Choose a resolution.", &window);

    combo->addItem("1280 x 720");
    combo->addItem("1920 x 1080");
    combo->addItem("2560 x 1440", /*isGray*/ true, /*isChinese*/ false); // with a badge
    combo->addItem("3840 x 2160");
    QVector<bool> isGray{false, false, true, true}; // later, as cameras come and go
    combo->setItemGrayState(isGray);
    combo->setCurrentIndex(0);

    QObject::connect(combo, &CustomShadowCombox::currentIndexChanged, answer,
                     [=](int row) { answer->setText("You have chosen " + combo->itemText(row) + "."); });
    QObject::connect(combo, &CustomShadowCombox::currentGrayIndexChanged, &window, [&](int row) {
        PopupDlgWithMask::message(&window, combo->itemText(row), "This resolution is not in your plan.");
    });

    combo->setFixedSize(260, 48);
    combo->setHeaderStyle(
        "QWidget#%1{background:palette(base);border:1px solid palette(mid);border-radius:8px;}");
    combo->setAccessibleName("Resolution");
    combo->setFocusPolicy(Qt::StrongFocus); // and it answers keys
    QVBoxLayout layout(&window);
    layout.addWidget(combo, 0, Qt::AlignHCenter | Qt::AlignBottom);
    layout.addWidget(answer, 0, Qt::AlignHCenter | Qt::AlignTop);
    window.resize(560, 420);
    window.show();
    return application.exec();
}
