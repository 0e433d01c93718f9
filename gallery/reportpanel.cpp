#include "reportpanel.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QAction> // of another module in each Qt
#include <QtGui/QClipboard>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kMaximumLines = 2000;
constexpr int kRowHeight = 24;
constexpr int kTextSize = 13;
constexpr int kSmallTextSize = 12;
constexpr int kTimeWidth = 92;
constexpr int kLevelWidth = 62;
constexpr int kLeftPadding = 20;
constexpr int kRightPadding = 12;
constexpr int kHeaderHeight = 40;
constexpr int kMinimumHeight = 96;

QColor levelColor(ReportLevel level)
{
    switch (level) {
    case ReportLevel::Result:
        return galleryColor("good");
    case ReportLevel::Signal:
        return galleryColor("primary");
    case ReportLevel::Warning:
        return galleryColor("warn");
    case ReportLevel::Critical:
        return galleryColor("bad");
    case ReportLevel::Debug:
    case ReportLevel::Info:
        break;
    }
    return galleryColor("muted");
}

QString timeText(const ReportLine &line)
{
    return line.time.toString(QStringLiteral("HH:mm:ss.zzz"));
}

/// One row of the panel: time, level, text.
class ReportDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {0, kRowHeight};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const auto *model = static_cast<const ReportModel *>(index.model());
        const ReportLine &line = model->lineAt(index.row());
        QRect rect = option.rect;
        if (option.state.testFlag(QStyle::State_Selected))
            painter->fillRect(rect, galleryColor("tint"));
        rect.adjust(kLeftPadding, 0, -kRightPadding, 0);

        QFont font = option.font;
        font.setPixelSize(kSmallTextSize);
        painter->setFont(font);
        painter->setPen(galleryColor("faint"));
        painter->drawText(rect, Qt::AlignVCenter, timeText(line));
        rect.setLeft(rect.left() + kTimeWidth);
        painter->setPen(levelColor(line.level));
        painter->drawText(rect, Qt::AlignVCenter, levelName(line.level));
        rect.setLeft(rect.left() + kLevelWidth);

        font.setPixelSize(kTextSize);
        painter->setFont(font);
        painter->setPen(galleryColor("text"));
        const QString text = QString(line.text).replace(QLatin1Char('\n'), QLatin1Char(' '));
        painter->drawText(rect, Qt::AlignVCenter | Qt::TextSingleLine,
                          painter->fontMetrics().elidedText(text, Qt::ElideRight, rect.width()));
    }
};

} // namespace

int ReportModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_lines.size();
}

QVariant ReportModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ReportLine &line = m_lines.at(index.row());
    if (role == Qt::DisplayRole)
        return QStringLiteral("%1 %2 %3").arg(timeText(line), levelName(line.level), line.text);
    if (role == Qt::ToolTipRole && !line.function.isEmpty())
        return QStringLiteral("%1\n%2").arg(line.function, line.place);
    return {};
}

void ReportModel::append(const QVector<ReportLine> &lines)
{
    const int surplus = std::min(m_lines.size() + lines.size() - kMaximumLines, m_lines.size());
    if (surplus > 0) {
        beginRemoveRows({}, 0, surplus - 1);
        m_lines.remove(0, surplus);
        endRemoveRows();
    }
    beginInsertRows({}, m_lines.size(), m_lines.size() + lines.size() - 1);
    m_lines += lines;
    endInsertRows();
}

void ReportModel::clear()
{
    beginResetModel();
    m_lines.clear();
    endResetModel();
}

ReportPanel::ReportPanel(QWidget *parent)
    : QWidget(parent)
    , m_model(new ReportModel(this))
    , m_view(new QListView(this))
{
    setMinimumHeight(kMinimumHeight);
    setGalleryRole(this, "panel");
    setAttribute(Qt::WA_StyledBackground);

    setGalleryRole(m_view, "reports");
    setGalleryRole(m_view->verticalScrollBar(), "scroll");
    m_view->setAccessibleName(QStringLiteral("Signals and log"));
    m_view->setModel(m_model);
    m_view->setItemDelegate(new ReportDelegate(m_view));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setUniformItemSizes(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);

    auto *copy = new QAction(QStringLiteral("Copy"), m_view);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(copy);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, this, &ReportPanel::copySelected);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 6, 6);
    layout->setSpacing(0);
    layout->addWidget(newHeader());
    layout->addWidget(m_view);
}

void ReportPanel::append(const QVector<ReportLine> &lines)
{
    // The panel follows what comes in unless the user has scrolled up to read.
    const QScrollBar *bar = m_view->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    m_model->append(lines);
    m_count->setText(QString::number(m_model->rowCount()));
    if (atEnd)
        m_view->scrollToBottom();
}

void ReportPanel::clear()
{
    m_model->clear();
    m_count->clear();
}

void ReportPanel::becomeLastInTabOrder()
{
    setTabOrder(window()->previousInFocusChain(), m_clearButton);
    setTabOrder(m_clearButton, m_view);
}

QWidget *ReportPanel::newHeader()
{
    auto *header = new QWidget(this);
    header->setFixedHeight(kHeaderHeight);
    auto *title = new QLabel(QStringLiteral("Signals and log"), header);
    setGalleryRole(title, "panelTitle");
    m_count = new QLabel(header);
    setGalleryRole(m_count, "caption");
    m_clearButton = new QPushButton(QStringLiteral("Clear"), header);
    setGalleryRole(m_clearButton, "quiet");
    m_clearButton->setCursor(Qt::PointingHandCursor);
    connect(m_clearButton, &QPushButton::clicked, this, &ReportPanel::clear);

    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(kLeftPadding, 0, kRightPadding, 0);
    layout->addWidget(title);
    layout->addWidget(m_count);
    layout->addStretch();
    layout->addWidget(m_clearButton);
    return header;
}

void ReportPanel::copySelected() const
{
    QModelIndexList rows = m_view->selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    QStringList texts;
    for (const QModelIndex &row : qAsConst(rows))
        texts.append(row.data().toString());
    QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}
