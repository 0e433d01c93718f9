#include "basemovedialogwithbackimage.h"
#include "pagebuilder.h"
#include "samplewindow.h"
#include "slicepicture.h"

#include <QtCore/QFile>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

const char *const kClientImage = ":/surface/resources/surface/common/dialog_bg.png";
const char *const kLibraryImage = ":/images/images/combox/popup_bg.png";
constexpr int kMaximumBorder = 60;
constexpr QSize kDialogSize(460, 260);
constexpr QSize kExampleSizes[] = {{96, 96}, {200, 120}, {90, 150}};

struct Settings
{
    QString image = QString::fromLatin1(kClientImage);
    QMargins borders{17, 14, 19, 22};
};

BaseMoveDialogWithBackImage *newDialog(const Settings &settings, bool asDialog, QWidget *parent)
{
    const QMargins &borders = settings.borders;
    return new BaseMoveDialogWithBackImage(settings.image, borders.left(), borders.top(), borders.right(),
                                           borders.bottom(), asDialog, asDialog, parent);
}

/// The class as part of a page, in several sizes. It has no setters: other settings mean other objects.
class Examples : public QWidget
{
public:
    explicit Examples(QWidget *parent)
        : QWidget(parent)
        , m_source(new SlicePicture(this))
        , m_layout(new QHBoxLayout(this))
    {
        m_layout->setContentsMargins(0, 0, 0, 0);
        m_layout->setSpacing(24);
        m_layout->addWidget(m_source);
        m_layout->addStretch();
        show(Settings());
    }

    void show(const Settings &settings)
    {
        qDeleteAll(m_shown);
        m_shown.clear();
        m_source->setPicture(QPixmap(settings.image), settings.borders);
        for (const QSize &size : kExampleSizes) {
            BaseMoveDialogWithBackImage *dialog = newDialog(settings, false, this);
            dialog->setFixedSize(size);
            m_layout->insertWidget(m_layout->count() - 1, dialog);
            m_shown.append(dialog);
        }
    }

private:
    SlicePicture *m_source;
    QHBoxLayout *m_layout;
    QVector<QWidget *> m_shown;
};

QWidget *openDialog(const Settings &settings, QWidget *mainWindow)
{
    BaseMoveDialogWithBackImage *dialog = newDialog(settings, true, mainWindow);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->resize(kDialogSize);
    QVBoxLayout *layout = fillSampleWindow(dialog, QStringLiteral("BaseMoveDialogWithBackImage"),
                                           QStringLiteral("The shadow around me is part of the picture."));
    layout->parentWidget()->setContentsMargins(settings.borders);
    setGalleryRole(dialog, "");
    dialog->setWidgetResizable(true);
    reportSignal(dialog, &BaseMoveDialog::sig_windowMovefinished, "sig_windowMovefinished");
    reportSignal(dialog, &BaseMoveDialog::sig_windowResizefinished, "sig_windowResizefinished");
    dialog->moveOver(mainWindow);
    dialog->QWidget::show();
    return dialog;
}

void build(PageBuilder &page)
{
    page.include("basemovedialogwithbackimage.h");
    const auto settings = std::make_shared<Settings>();
    QWidget *mainWindow = page.window();

    page.section(
        "One picture, any size",
        "The four borders cut the picture into nine pieces: the corners keep their size, the edges are "
        "stretched along themselves, the middle fills the rest. It is cut anew only when the size changes.");
    auto *examples = new Examples(page.widget());
    page.wideExample(examples);

    page.choice("Picture",
                {QStringLiteral("the client's dialog"), QStringLiteral("the library's popup"),
                 QStringLiteral("none: a white rectangle")},
                0, [settings, examples](int index) {
                    const char *const images[] = {kClientImage, kLibraryImage, ""};
                    settings->image = QString::fromLatin1(images[index]);
                    examples->show(*settings);
                });
    const auto border = [settings, examples](void (QMargins::*setter)(int)) {
        return [settings, examples, setter](int width) {
            (settings->borders.*setter)(width);
            examples->show(*settings);
        };
    };
    page.spinBox("Left", 0, kMaximumBorder, settings->borders.left(), border(&QMargins::setLeft));
    page.spinBox("Top, radius", 0, kMaximumBorder, settings->borders.top(), border(&QMargins::setTop));
    page.spinBox("Right", 0, kMaximumBorder, settings->borders.right(), border(&QMargins::setRight));
    page.spinBox("Bottom", 0, kMaximumBorder, settings->borders.bottom(), border(&QMargins::setBottom));
    page.primaryButton("Open it as a dialog", [settings, mainWindow] {
        openDialog(*settings, mainWindow);
        report("a dialog is open");
    });
    page.shot("dialog-basemovedialogwithbackimage",
              [settings, mainWindow] { return openDialog(*settings, mainWindow); });
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::WindowFrame, "BaseMoveDialogWithBackImage",
    "A movable dialog whose background is a picture, stretched to its size without distorting the border.",
    build);

} // namespace
