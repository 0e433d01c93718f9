#include "basemovedialogwithbackimage.h"
#include "bench.h"
#include "canvas.h"
#include "commonpopupdialog.h"
#include "orvupdatetipdlg.h"
#include "popuploadingdlgwithmask.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr QSize kDialogSize(400, 240);
constexpr int kAnimationMs = 3000;

// Draws a ready pixmap: the least that a dialog with a background can do.
class PixmapDialog : public QWidget
{
public:
    explicit PixmapDialog(const QPixmap &pixmap)
        : m_pixmap(pixmap)
    {
        setWindowFlags(Qt::FramelessWindowHint | Qt::Dialog);
        setAttribute(Qt::WA_TranslucentBackground);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), m_pixmap);
    }

private:
    QPixmap m_pixmap;
};

// Notes that a window has been painted.
class PaintWatch : public QObject
{
public:
    bool painted = false;
    bool eventFilter(QObject *, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

// From the call to the picture on the screen, and away again.
void showAndClose(QWidget &window)
{
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    while (!watch.painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    window.close();
    QCoreApplication::processEvents();
}

void measureBackground(Bench &bench)
{
    const QString image = QStringLiteral(":/images/images/combox/popup_bg.png");
    BaseMoveDialogWithBackImage ours(image, 8, false, true, nullptr);
    ours.resize(kDialogSize);
    PixmapDialog stock(ours.grab());
    stock.resize(kDialogSize);
    Canvas canvas(kDialogSize);
    bench.compare(
        "BaseMoveDialogWithBackImage: repaint / a ready pixmap", [&] { canvas.paint(ours); },
        [&] { canvas.paint(stock); });
}

// The same parts in a dialog of Qt's own.
std::unique_ptr<QDialog> newStockDialog()
{
    auto dialog = std::make_unique<QDialog>(nullptr, Qt::FramelessWindowHint | Qt::Dialog);
    dialog->setFixedSize(kDialogSize);
    auto *body = new QWidget(dialog.get());
    body->setFixedSize(kDialogSize);
    auto *closeButton = new QPushButton(dialog.get());
    closeButton->setFixedSize(18, 18);
    auto *title = new QLabel(QStringLiteral("Title"), body);
    title->setFixedSize(kDialogSize.width() - 18, 22);
    auto *column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setAlignment(Qt::AlignTop);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(5, 5, 5, 5);
    row->addSpacing(20);
    row->addWidget(title);
    row->addStretch();
    row->addWidget(closeButton);
    row->addSpacing(12);
    column->addSpacing(5);
    column->addLayout(row);
    auto *line = new QWidget(body);
    line->setFixedSize(kDialogSize.width(), 1);
    column->addWidget(line);
    return dialog;
}

std::unique_ptr<CommonPopupDialog> newPopupDialog()
{
    return std::make_unique<CommonPopupDialog>(nullptr, QStringLiteral("Title"), kDialogSize, true, true,
                                               false, false, false);
}

void measurePopupDialog(Bench &bench)
{
    const std::unique_ptr<CommonPopupDialog> ours = newPopupDialog();
    const std::unique_ptr<QDialog> stock = newStockDialog();
    bench.compare(
        "CommonPopupDialog: show and close / QDialog with its children", [&] { showAndClose(*ours); },
        [&] { showAndClose(*stock); });
    bench.compare(
        "CommonPopupDialog: construction", [] { newPopupDialog(); }, [] { newStockDialog(); });
}

QString tipImage()
{
    return QStringLiteral(":/surface/resources/surface/common/dialog_bg.png");
}

// What a dialog of Qt's own has for a background, title, text, checkbox and button of these sizes.
std::unique_ptr<QWidget> newStockMessage(QSize size, const QMargins &border, int buttons, bool checkable,
                                         const QWidget &like)
{
    auto dialog = std::make_unique<QWidget>(nullptr, Qt::FramelessWindowHint | Qt::Tool);
    dialog->setAttribute(Qt::WA_TranslucentBackground);
    dialog->setFixedSize(size);
    auto *background = new QLabel(dialog.get());
    background->setStyleSheet(QStringLiteral("border-image:url(%1) 14 19 22 17 stretch;").arg(tipImage()));
    background->setGeometry(dialog->rect());
    auto *column = new QVBoxLayout(dialog.get());
    column->setContentsMargins(border);
    // The same parts with the same sheets.
    const auto labels = like.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        auto *copy = new QLabel(label->text(), dialog.get());
        copy->setStyleSheet(label->styleSheet());
        column->addWidget(copy);
    }
    if (checkable) {
        auto *box = new QCheckBox(dialog.get());
        box->setStyleSheet(like.findChild<QCheckBox *>()->styleSheet());
        column->addWidget(box);
    }
    const auto likeButtons = like.findChildren<QPushButton *>();
    for (int i = 0; i < buttons; ++i) {
        auto *button = new QPushButton(likeButtons.at(i)->text(), dialog.get());
        button->setFixedSize(likeButtons.at(i)->size());
        button->setStyleSheet(likeButtons.at(i)->styleSheet());
        column->addWidget(button);
    }
    return dialog;
}

void showAndDelete(std::unique_ptr<QWidget> window)
{
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    showAndClose(*window);
}

void measureMessages(Bench &bench)
{
    const QString text = QStringLiteral("Text");
    const auto newTip = [&] {
        return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(400, 240), text, text, text, text);
    };
    const auto newUpdate = [&] {
        return std::make_unique<OrvUpdateTipDlg>(QSize(436, 240), tipImage(), 17, 14, 19, 22, nullptr, text,
                                                 text, false, true);
    };
    const auto tip = newTip();
    const auto update = newUpdate();
    const QMargins border(17, 14, 19, 22);
    bench.compare(
        "TipsDlgWithCheckbox: built, shown, painted, closed / QWidget", [&] { showAndDelete(newTip()); },
        [&] { showAndDelete(newStockMessage(tip->size(), border, 2, true, *tip)); });
    bench.compare(
        "OrvUpdateTipDlg: built, shown, painted, closed / QWidget", [&] { showAndDelete(newUpdate()); },
        [&] { showAndDelete(newStockMessage(update->size(), border, 3, false, *update)); });
}

double millisecondsWhileShown(QWidget &window)
{
    window.show();
    QCoreApplication::processEvents();
    const double before = Bench::processorNanoseconds();
    QEventLoop loop;
    QTimer::singleShot(kAnimationMs, &loop, &QEventLoop::quit);
    loop.exec();
    const double spent = Bench::processorNanoseconds() - before;
    window.hide();
    return spent / 1e6;
}

void measureLoadingDialog(Bench &bench)
{
    const char what[] = "PopupLoadingDlgWithMask: three seconds shown / QLabel";
    bench.compareValues(
        what, "ms",
        [] {
            auto *dialog = new PopupLoadingDlgWithMask(QSize(400, 300), QSize(96, 120),
                                                       QStringLiteral("Loading"), nullptr);
            const double spent = millisecondsWhileShown(*dialog);
            delete dialog;
            return spent;
        },
        [] {
            QMovie movie(QStringLiteral(":/surface/resources/surface/live/connecting.gif"));
            movie.setScaledSize(QSize(50, 50));
            QLabel label;
            label.setFixedSize(50, 50);
            label.setMovie(&movie);
            movie.start();
            return millisecondsWhileShown(label);
        });
}

const BenchGroup group("dialogs", [](Bench &bench) {
    measureBackground(bench);
    measurePopupDialog(bench);
    measureMessages(bench);
    measureLoadingDialog(bench);
});

} // namespace
