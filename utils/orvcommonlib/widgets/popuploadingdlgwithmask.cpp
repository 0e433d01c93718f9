#include "popuploadingdlgwithmask.h"

#include "accessiblecontent.h"
#include "lookpictures.h"
#include "looksheets.h"
#include "looktable.h"
#include "orvlook.h"

#include <QtCore/QMargins>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr char kBoxStyle[] = "background:@loadingGround;border-radius:10px;border:0px solid @loadingBorder;";
constexpr char kCaptionStyle[] =
    "QLabel \n{ \n background: transparent;font-size: 12px;\n font-weight: Normal; \n color: @loadingText; \n"
    " text-align: center; \n}";

QString moviePath()
{
    return LookPictures::path(QStringLiteral(":/surface/resources/surface/live/connecting.gif"));
}

constexpr QMargins kBoxMargins(23, 12, 23, 17);
constexpr int kBoxSpacing = 4;
constexpr QSize kMovieSize(50, 50);
constexpr int kCaptionHeight = 20;

} // namespace

PopupLoadingDlgWithMask::PopupLoadingDlgWithMask(QSize dialogSize, QSize boxSize, QString text,
                                                 QWidget *parent)
    : BaseMoveDialog(parent, false, true, true)
    , m_text(text)
{
    setObjectName(QStringLiteral("popuploadingdlgwithmask"));
    setFixedSize(dialogSize);
    setWindowFlags(windowFlags() | Qt::Tool);
    setAttribute(Qt::WA_DeleteOnClose);
    connect(OrvLook::instance(), &OrvLook::changed, this, &PopupLoadingDlgWithMask::followLook);

    // Truncated: what is left of an odd difference goes to the right or bottom.
    const int horizontal = (dialogSize.width() - boxSize.width()) / 2;
    const int vertical = (dialogSize.height() - boxSize.height()) / 2;
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(horizontal, vertical, horizontal, vertical);
    layout->setSpacing(0);

    auto *box = new QWidget(this);
    box->setFixedSize(boxSize);
    initWidget(box);
    layout->addWidget(box);
}

PopupLoadingDlgWithMask::~PopupLoadingDlgWithMask()
{
    if (m_movie && m_movie->state() != QMovie::NotRunning)
        m_movie->stop();
}

void PopupLoadingDlgWithMask::initWidget(QWidget *box)
{
    LookSheets::apply(box, kBoxStyle);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(kBoxMargins);
    layout->setSpacing(kBoxSpacing);
    layout->addStretch();

    m_movieLabel = new QLabel(box);
    m_movieLabel->setFixedSize(kMovieSize);
    setMovie(moviePath());

    auto *caption = new QLabel(box);
    caption->setFixedHeight(kCaptionHeight);
    caption->setText(m_text);
    AccessibleContent::mark(caption);
    LookSheets::apply(caption, kCaptionStyle);

    layout->addWidget(m_movieLabel);
    layout->addWidget(caption);
    layout->addStretch();
}

void PopupLoadingDlgWithMask::setMovie(const QString &path)
{
    m_movie = new QMovie(path, QByteArray());
    m_movie->setScaledSize(m_movieLabel->size());
    m_movie->setCacheMode(QMovie::CacheAll); // decoding costs more than all the painting of a frame
    m_movieLabel->setMovie(m_movie);
}

void PopupLoadingDlgWithMask::followLook()
{
    const bool isOurs = m_movieLabel && m_movie && m_movieLabel->movie() == m_movie;
    if (!isOurs || m_movie->fileName() == moviePath())
        return;
    const std::unique_ptr<QMovie> former(m_movie);
    setMovie(moviePath());
    m_movie->setParent(former->parent());
    if (former->state() == QMovie::Running)
        m_movie->start();
}

void PopupLoadingDlgWithMask::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                               QPainter::SmoothPixmapTransform);
        QPainterPath area;
        area.addRoundedRect(rect(), 0, 0);
        painter.setClipPath(area, Qt::ReplaceClip);
        painter.fillPath(area, lookColor(QStringLiteral("loadingVeil")));
    }
    BaseMoveDialog::paintEvent(event);
}

void PopupLoadingDlgWithMask::showEvent(QShowEvent *event)
{
    if (m_movieLabel && m_movie) {
        m_movieLabel->setMovie(m_movie);
        m_movie->start();
    }
    BaseMoveDialog::showEvent(event);
}
