#include "picturepage.h"
#include "dialogs.h"
#include "preview.h"

#include <customshadowcombox.h>
#include <customsliderbarwidget.h>
#include <newhorizontalslider.h>

constexpr int kWidth = 260;

PicturePage::PicturePage(Preview *preview, QWidget *parent)
    : QWidget(parent)
    , m_preview(preview)
    , m_column(new QVBoxLayout(this))
{
    setWindowTitle(tr("Picture"));
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(8);
    addCameras();
    addResolutions();
    addSlider(tr("Brightness"), -50, 50, "brightness");
    addSlider(tr("Contrast"), -50, 50, "contrast");
    addSlider(tr("Beauty"), 0, 100, "beauty");
    addZoom();
    m_column->addStretch();
}

void PicturePage::addCameras()
{
    auto *plugIn = new QPushButton(tr("Plug in"), this);
    auto *unplug = new QPushButton(tr("Unplug"), this);
    addRow({new QLabel(tr("Camera"), this), plugIn, unplug});
    const QStringList builtIn{tr("Front camera"), tr("Desk camera"), tr("Capture card")};
    CustomShadowCombox *combo =
        addCombo(tr("Camera"), builtIn, tr("Another program is using the capture card. Close it first."));

    const auto choose = [=](int row) {
        combo->setCurrentIndex(row);
        unplug->setEnabled(row >= builtIn.size());
        m_preview->set("camera", row);
    };
    const int kept = m_preview->property("camera").toInt();
    choose(kept < builtIn.size() ? kept : 0);
    connect(combo, &CustomShadowCombox::currentIndexChanged, this, choose);
    connect(plugIn, &QPushButton::clicked, this, [=, number = 0]() mutable {
        combo->addItem(tr("USB camera %1").arg(++number));
        choose(combo->count() - 1);
    });
    connect(unplug, &QPushButton::clicked, this, [=] {
        combo->removeItem(combo->currentIndex());
        choose(0);
    });
}

void PicturePage::addResolutions()
{
    addRow({new QLabel(tr("Resolution"), this)});
    CustomShadowCombox *combo =
        addCombo(tr("Resolution"), {"640 x 360", "960 x 540", "1280 x 720", "3840 x 2160"},
                 tr("None of your cameras has this resolution."));
    const QVector<QSize> sizes{{640, 360}, {960, 540}, {1280, 720}};
    combo->setCurrentIndex(sizes.indexOf(m_preview->property("resolution").toSize()));
    connect(combo, &CustomShadowCombox::currentIndexChanged, this,
            [=](int row) { m_preview->set("resolution", sizes[row]); });
}

void PicturePage::addSlider(const QString &name, int minimum, int maximum, const char *property)
{
    auto *number = new QLabel("0", this);
    auto *slider = new NewHorizontalSlider(QSize(kWidth, 14), QSize(14, 14), minimum < 0, this);
    slider->setAccessibleName(name);
    slider->setFocusPolicy(Qt::StrongFocus);
    slider->setRange(minimum, maximum);
    connect(slider, &NewHorizontalSlider::valueChanged, this, [=](int value) {
        number->setNum(value);
        m_preview->set(property, value);
    });
    slider->setValue(m_preview->property(property).toInt());
    addRow({new QLabel(name, this), number});
    m_column->addWidget(slider);
}

void PicturePage::addZoom()
{
    auto *label = new QLabel(this);
    auto *steps = new CustomSliderBarWidget(this);
    steps->setAccessibleName(tr("Zoom"));
    steps->setFocusPolicy(Qt::StrongFocus);
    steps->setCount(4);
    const auto zoom = [=](int step) {
        label->setText(tr("Zoom %1 x").arg(Preview::zoomFactor(step)));
        m_preview->set("zoom", step);
    };
    steps->setCurrentIndex(m_preview->property("zoom").toInt());
    zoom(steps->getCurrentIndex());
    connect(steps, &CustomSliderBarWidget::selectFinish, this, zoom);
    addRow({label, steps});
}

// The last of its rows is gray: there is a reason why not to choose it.
CustomShadowCombox *PicturePage::addCombo(const QString &name, const QStringList &rows, const QString &whyNot)
{
    auto *combo = new CustomShadowCombox(this);
    combo->setFixedSize(kWidth, 44);
    combo->setHeaderStyle("QWidget#%1{border:1px solid rgba(128, 132, 145, 110);border-radius:6px;}");
    combo->setAccessibleName(name);
    combo->setFocusPolicy(Qt::StrongFocus);
    combo->setItems(rows);
    QVector<bool> isGray(rows.size());
    isGray.last() = true;
    combo->setItemGrayState(isGray);
    connect(combo, &CustomShadowCombox::currentGrayIndexChanged, this,
            [=] { Dialogs::ask(window(), name, whyNot); });
    m_column->addWidget(combo);
    return combo;
}

void PicturePage::addRow(const QList<QWidget *> &widgets)
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 10, 0, 0);
    for (QWidget *widget : widgets)
        row->addWidget(widget);
    row->insertStretch(1);
    m_column->addLayout(row);
}
