#include "picturepage.h"
#include "dialogs.h"
#include "preview.h"
#include "studiostyle.h"

#include <customshadowcombox.h>
#include <customsliderbarwidget.h>
#include <newhorizontalslider.h>

#include <QtCore/QSettings>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int kWidth = 260;
constexpr int kBuiltIn = 3; // cameras that are always there
constexpr double kZooms[] = {1, 1.5, 2, 3};

} // namespace

PicturePage::PicturePage(Preview *preview, QWidget *parent)
    : QWidget(parent)
    , m_preview(preview)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(8);
    addCameras();
    addResolutions();
    addSlider(tr("Brightness"), -50, 50, "brightness", &Preview::setBrightness);
    addSlider(tr("Contrast"), -50, 50, "contrast", &Preview::setContrast);
    addSlider(tr("Beauty"), 0, 100, "beauty", &Preview::setBeauty);
    addZoom();
    m_column->addStretch();
}

void PicturePage::addCameras()
{
    QPushButton *plugIn = StudioStyle::newButton("quiet", tr("Plug in"), this);
    m_unplug = StudioStyle::newButton("quiet", tr("Unplug"), this);
    addRow(new QLabel(tr("Camera"), this), plugIn)->addWidget(m_unplug);
    m_camera = addCombo(tr("Camera"));
    for (const QString &name : {tr("Front camera"), tr("Desk camera"), tr("Capture card")})
        addCamera(name);
    QVector<bool> isTaken{false, false, true};
    m_camera->setItemGrayState(isTaken);
    chooseCamera(qMax(0, m_camera->findText(QSettings().value("camera").toString())));

    connect(plugIn, &QPushButton::clicked, this, [this] {
        addCamera(tr("USB camera %1").arg(m_camera->count() - kBuiltIn + 1));
        chooseCamera(m_camera->count() - 1);
    });
    connect(m_unplug, &QPushButton::clicked, this, [this] {
        m_camera->removeItem(m_camera->currentIndex());
        chooseCamera(0);
    });
    connect(m_camera, &CustomShadowCombox::currentIndexChanged, this, &PicturePage::chooseCamera);
    connect(m_camera, &CustomShadowCombox::currentGrayIndexChanged, this, [this] {
        Dialogs::explain(window(), tr("Camera in use"),
                         tr("Another program is using the capture card. Close it first."));
    });
}

void PicturePage::addCamera(const QString &name)
{
    m_camera->addItem(name);
    m_camera->setItemData(m_camera->count() - 1, m_cameras++);
}

void PicturePage::chooseCamera(int row)
{
    m_camera->setCurrentIndex(row);
    m_preview->setCamera(m_camera->itemData(row).toInt());
    m_unplug->setEnabled(row >= kBuiltIn);
    QSettings().setValue("camera", m_camera->currentText());
}

void PicturePage::addResolutions()
{
    addRow(new QLabel(tr("Resolution"), this), new QLabel(this));
    CustomShadowCombox *combo = addCombo(tr("Resolution"));
    for (const QSize size : {QSize(640, 360), QSize(960, 540), QSize(1280, 720), QSize(3840, 2160)}) {
        combo->addItem(QString("%1 x %2").arg(size.width()).arg(size.height()));
        combo->setItemData(combo->count() - 1, size);
    }
    QVector<bool> isTooLarge{false, false, false, true};
    combo->setItemGrayState(isTooLarge);
    combo->setCurrentIndex(1);
    combo->setCurrentIndex(combo->findText(QSettings().value("resolution").toString())); // -1 changes nothing
    const auto choose = [this, combo](int row) {
        m_preview->setResolution(combo->itemData(row).toSize());
        QSettings().setValue("resolution", combo->itemText(row));
    };
    choose(combo->currentIndex());
    connect(combo, &CustomShadowCombox::currentIndexChanged, this, choose);
    connect(combo, &CustomShadowCombox::currentGrayIndexChanged, this, [this] {
        Dialogs::explain(window(), tr("A larger picture"), tr("None of your cameras has this resolution."));
    });
}

void PicturePage::addSlider(const QString &name, int minimum, int maximum, const QString &key,
                            void (Preview::*set)(int))
{
    auto *number = new QLabel("0", this);
    auto *slider = new NewHorizontalSlider(QSize(kWidth, 14), QSize(14, 14), minimum < 0, this);
    slider->setAccessibleName(name);
    slider->setFocusPolicy(Qt::StrongFocus);
    slider->setRange(minimum, maximum);
    connect(slider, &NewHorizontalSlider::valueChanged, this, [=](int value) {
        (m_preview->*set)(value);
        number->setNum(value);
        QSettings().setValue(key, value);
    });
    slider->setValue(QSettings().value(key).toInt());
    addRow(new QLabel(name, this), number);
    m_column->addWidget(slider);
}

void PicturePage::addZoom()
{
    auto *label = new QLabel(this);
    auto *steps = new CustomSliderBarWidget(this);
    steps->setAccessibleName(tr("Zoom"));
    steps->setFocusPolicy(Qt::StrongFocus);
    steps->setCount(int(std::size(kZooms)));
    steps->setCurrentIndex(qBound(0, QSettings().value("zoom").toInt(), steps->getCount() - 1));
    const auto zoom = [this, label](int step) {
        label->setText(tr("Zoom %1 x").arg(kZooms[step]));
        m_preview->setZoom(kZooms[step]);
        QSettings().setValue("zoom", step);
    };
    zoom(steps->getCurrentIndex());
    connect(steps, &CustomSliderBarWidget::selectFinish, this, zoom);
    addRow(label, steps);
}

CustomShadowCombox *PicturePage::addCombo(const QString &name)
{
    auto *combo = new CustomShadowCombox(this);
    combo->setFixedSize(kWidth, 44);
    combo->setHeaderStyle("QWidget#%1{border:1px solid rgba(128, 132, 145, 110);border-radius:6px;}");
    combo->setAccessibleName(name);
    combo->setFocusPolicy(Qt::StrongFocus);
    m_column->addWidget(combo);
    return combo;
}

QHBoxLayout *PicturePage::addRow(QWidget *left, QWidget *right)
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 10, 0, 0);
    row->addWidget(left);
    row->addStretch();
    row->addWidget(right);
    m_column->addLayout(row);
    return row;
}
