#include "insideloop.h"
#include "logcapture.h"
#include "notingdevice.h"
#include "pictures.h"
#include "popuploadingdlgwithmask.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>
#include <QtGui/QBackingStore>
#include <QtGui/QImage>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsEffect>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <memory>

namespace {

constexpr QSize kDialogSize(400, 300);
constexpr QSize kBoxSize(96, 120);

/// A dialog, and the movie that it leaves behind on purpose.
class Loading
{
public:
    explicit Loading(QSize dialogSize = kDialogSize, QSize boxSize = kBoxSize)
        : dialog(new PopupLoadingDlgWithMask(dialogSize, boxSize, QStringLiteral("Connecting"), nullptr))
        , movie(movieLabel()->movie())
    {
    }

    ~Loading()
    {
        delete dialog;
        delete movie;
    }

    Q_DISABLE_COPY(Loading)

    QWidget *box() const { return dialog->layout()->itemAt(0)->widget(); }
    QLabel *movieLabel() const { return qobject_cast<QLabel *>(box()->layout()->itemAt(1)->widget()); }
    QLabel *caption() const { return qobject_cast<QLabel *>(box()->layout()->itemAt(2)->widget()); }

    QPointer<PopupLoadingDlgWithMask> dialog;
    QPointer<QMovie> movie;
};

void destroy(QObject *object)
{
    object->deleteLater();
    QCoreApplication::sendPostedEvents(object, QEvent::DeferredDelete);
}

enum class Animation { Good, Missing, Broken };

/// What the window has painted of itself so far, which a screen cannot always tell of a translucent one.
QImage shownOf(const QWidget &window, const QRect &area)
{
    const QPaintDevice *device = window.backingStore()->paintDevice();
    if (device->devType() != QInternal::Image)
        return {};
    const qreal ratio = window.devicePixelRatioF();
    const QPointF corner = QPointF(area.topLeft()) * ratio;
    return static_cast<const QImage *>(device)->copy(
        QRect(corner.toPoint(), (QSizeF(area.size()) * ratio).toSize()));
}

/// Something that a client does to a box or to what it lies in.
using Change = std::function<void(QWidget *)>;

/// How the first path of this colour was drawn.
struct Fill
{
    QColor color;
    QPainter::RenderHints hints;
    QPainterPath clip;
    Qt::ClipOperation operation = Qt::NoClip;
    QRectF area;
};

/// Notes what it is told to fill.
class FillNotes : public NotingDevice
{
public:
    using NotingDevice::NotingDevice;

    QVector<Fill> fills;

protected:
    void updateState(const QPaintEngineState &changed) override
    {
        if (changed.state() & DirtyBrush)
            m_now.color = changed.brush().color();
        if (changed.state() & DirtyHints)
            m_now.hints = changed.renderHints();
        if (changed.state() & DirtyClipPath) {
            m_now.clip = changed.clipPath();
            m_now.operation = changed.clipOperation();
        }
    }
    void drawPath(const QPainterPath &path) override { note(path.boundingRect()); }
    void drawRects(const QRectF *rects, int count) override
    {
        for (int i = 0; i < count; ++i)
            note(rects[i]);
    }

private:
    void note(const QRectF &area)
    {
        fills << m_now;
        fills.last().area = area;
    }

    Fill m_now;
};

bool isStretch(QLayoutItem *item)
{
    return item->spacerItem() && item->expandingDirections().testFlag(Qt::Vertical);
}

} // namespace

Q_DECLARE_METATYPE(Animation)
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(QMargins)

// The resource macros work outside of namespaces only.
static void provide(Animation animation)
{
    Q_CLEANUP_RESOURCE(clientpictures);
    Q_CLEANUP_RESOURCE(brokenmovie);
    if (animation == Animation::Good)
        Q_INIT_RESOURCE(clientpictures);
    else if (animation == Animation::Broken)
        Q_INIT_RESOURCE(brokenmovie);
}

class tst_PopupLoadingDlgWithMask : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { provide(Animation::Good); }

    void buildsItsWindow();
    void centresTheBox_data();
    void centresTheBox();
    void clipsALargeBox();
    void buildsTheBox();
    void preparesTheMovie();

    void movieRunsFromTheFirstShowing();
    void movieIsStoppedWhenDestroyed();
    void movieIsDeletedBySomebodyElse();
    void tintsItsArea();
    void clipsAndSmoothsTheTint();
    void isPaintedByStyleSheets();
    void isMappedWhenItIsShown();
    void showsTheSpinner();
    void framesLookLikeThoseOfAPlainLabel_data();
    void framesLookLikeThoseOfAPlainLabel();
    void showsTheCaptionAlone_data();
    void showsTheCaptionAlone();

    void deletesItselfWhenClosed();
    void destroyedWithItsParent();
    void acceptsAbsurdSizes_data();
    void acceptsAbsurdSizes();
};

void tst_PopupLoadingDlgWithMask::buildsItsWindow()
{
    const Loading loading;
    QCOMPARE(loading.dialog->objectName(), QStringLiteral("popuploadingdlgwithmask"));
    QCOMPARE(loading.dialog->minimumSize(), kDialogSize);
    QCOMPARE(loading.dialog->maximumSize(), kDialogSize);
    QCOMPARE(loading.dialog->windowType(), Qt::Tool);
    QVERIFY(loading.dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(loading.dialog->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(loading.dialog->testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(loading.dialog->windowModality(), Qt::NonModal);
    QCOMPARE(loading.dialog->styleSheet(), QString());
    QVERIFY(!loading.dialog->isVisible());
}

void tst_PopupLoadingDlgWithMask::centresTheBox_data()
{
    QTest::addColumn<QSize>("dialogSize");
    QTest::addColumn<QSize>("boxSize");
    QTest::addColumn<QMargins>("margins");
    QTest::newRow("even") << kDialogSize << kBoxSize << QMargins(152, 90, 152, 90);
    QTest::newRow("odd") << QSize(401, 303) << kBoxSize << QMargins(152, 91, 152, 91);
    QTest::newRow("equal") << kBoxSize << kBoxSize << QMargins(0, 0, 0, 0);
    QTest::newRow("one to spare") << QSize(97, 121) << kBoxSize << QMargins(0, 0, 0, 0);
}

void tst_PopupLoadingDlgWithMask::centresTheBox()
{
    QFETCH(const QSize, dialogSize);
    QFETCH(const QSize, boxSize);
    QFETCH(const QMargins, margins);
    const Loading loading(dialogSize, boxSize);
    const auto *layout = qobject_cast<QVBoxLayout *>(loading.dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), margins);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
    loading.dialog->show();
    QCOMPARE(loading.box()->geometry(), QRect(QPoint(margins.left(), margins.top()), boxSize));
}

void tst_PopupLoadingDlgWithMask::clipsALargeBox()
{
    const Loading loading(QSize(80, 60), QSize(200, 160));
    loading.dialog->show();
    QCOMPARE(loading.dialog->size(), QSize(80, 60));
    QCOMPARE(loading.box()->size(), QSize(200, 160));
    // Qt takes negative margins for the style's own.
    const QRect visible = loading.box()->visibleRegion().boundingRect();
    QVERIFY(!visible.isEmpty());
    QVERIFY(visible.width() < 200);
    QVERIFY(visible.height() < 160);
}

void tst_PopupLoadingDlgWithMask::buildsTheBox()
{
    const Loading loading;
    QWidget *box = loading.box();
    QCOMPARE(box->metaObject(), &QWidget::staticMetaObject);
    QCOMPARE(box->parentWidget(), loading.dialog.data());
    QCOMPARE(box->minimumSize(), kBoxSize);
    QCOMPARE(box->maximumSize(), kBoxSize);
    QCOMPARE(box->styleSheet(),
             QStringLiteral("background:#FFFFFF;border-radius:10px;border:0px solid #FFFFFF;"));
    const auto *layout = qobject_cast<QVBoxLayout *>(box->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(23, 12, 23, 17));
    QCOMPARE(layout->spacing(), 4);
    QCOMPARE(layout->count(), 4);
    QVERIFY(isStretch(layout->itemAt(0)));
    QVERIFY(isStretch(layout->itemAt(3)));
    QCOMPARE(layout->itemAt(1)->alignment(), Qt::Alignment());
    QCOMPARE(layout->itemAt(2)->alignment(), Qt::Alignment());

    QCOMPARE(loading.movieLabel()->metaObject(), &QLabel::staticMetaObject);
    QCOMPARE(loading.movieLabel()->minimumSize(), QSize(50, 50));
    QCOMPARE(loading.movieLabel()->maximumSize(), QSize(50, 50));
    QCOMPARE(loading.movieLabel()->parentWidget(), box);
    QCOMPARE(loading.caption()->parentWidget(), box);
    QCOMPARE(loading.caption()->text(), QStringLiteral("Connecting"));
    QCOMPARE(loading.caption()->minimumHeight(), 20);
    QCOMPARE(loading.caption()->maximumHeight(), 20);
    QCOMPARE(loading.caption()->styleSheet(),
             QStringLiteral("QLabel \n{ \n background: transparent;font-size: 12px;\n font-weight: Normal; \n"
                            " color: #666666; \n text-align: center; \n}"));

    loading.dialog->show();
    const int above = loading.movieLabel()->y() - 12;
    const int below = box->height() - 17 - loading.caption()->geometry().bottom() - 1;
    QVERIFY(qAbs(above - below) <= 1);
}

void tst_PopupLoadingDlgWithMask::preparesTheMovie()
{
    const Loading loading;
    QVERIFY(loading.movie);
    QVERIFY(loading.movie->isValid());
    QCOMPARE(loading.movie->fileName(), QStringLiteral(":/surface/resources/surface/live/connecting.gif"));
    QCOMPARE(loading.movie->parent(), nullptr);
    QCOMPARE(loading.movie->scaledSize(), QSize(50, 50));
    QCOMPARE(loading.movie->state(), QMovie::NotRunning);
}

void tst_PopupLoadingDlgWithMask::movieRunsFromTheFirstShowing()
{
    const Loading loading;
    QSignalSpy started(loading.movie.data(), &QMovie::started);
    loading.dialog->show();
    QCOMPARE(loading.movie->state(), QMovie::Running);
    QCOMPARE(started.count(), 1);
    QTRY_VERIFY(loading.movie->currentFrameNumber() >= 2);

    loading.dialog->hide();
    QCOMPARE(loading.movie->state(), QMovie::Running);
    const int frame = loading.movie->currentFrameNumber();
    loading.movieLabel()->clear();
    loading.dialog->show();
    QCOMPARE(loading.movieLabel()->movie(), loading.movie.data());
    QCOMPARE(loading.movie->state(), QMovie::Running);
    QCOMPARE(loading.movie->currentFrameNumber(), frame);
    QCOMPARE(started.count(), 1);

    loading.movie->stop();
    loading.dialog->hide();
    loading.dialog->show();
    QCOMPARE(loading.movie->state(), QMovie::Running);
}

void tst_PopupLoadingDlgWithMask::movieIsStoppedWhenDestroyed()
{
    const Loading loading;
    loading.dialog->show();
    QCOMPARE(loading.movie->state(), QMovie::Running);
    destroy(loading.dialog);
    QVERIFY(!loading.dialog);
    QVERIFY(loading.movie);
    QCOMPARE(loading.movie->state(), QMovie::NotRunning);
}

void tst_PopupLoadingDlgWithMask::movieIsDeletedBySomebodyElse()
{
    const Loading loading;
    loading.dialog->show();
    destroy(loading.movie);
    QVERIFY(!loading.movie);
    loading.dialog->hide();
    loading.dialog->show();
    QVERIFY(!loading.movieLabel()->movie());
}

void tst_PopupLoadingDlgWithMask::tintsItsArea()
{
    const Loading loading;
    QImage painted(kDialogSize, QImage::Format_ARGB32);
    painted.fill(Qt::transparent);
    loading.dialog->render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
    QImage expected(kDialogSize, QImage::Format_ARGB32);
    expected.fill(QColor(128, 128, 128, 30));
    // One step of difference comes from the multiplication with the alpha value.
    QVERIFY(differingPixels(painted, expected, 2) == 0);
    QCOMPARE(painted.pixelColor(0, 0).alpha(), 30);

    QImage onWhite(kDialogSize, QImage::Format_RGB32);
    onWhite.fill(Qt::white);
    QImage expectedOnWhite = onWhite;
    QPainter(&expectedOnWhite).fillRect(onWhite.rect(), QColor(128, 128, 128, 30));
    loading.dialog->render(&onWhite, QPoint(), QRegion(), QWidget::RenderFlags());
    QCOMPARE(differingPixels(onWhite, expectedOnWhite), 0);
    QCOMPARE(onWhite.pixelColor(kDialogSize.width() - 1, kDialogSize.height() - 1), QColor(240, 240, 240));
}

void tst_PopupLoadingDlgWithMask::clipsAndSmoothsTheTint()
{
    const Loading loading;
    FillNotes notes(kDialogSize);
    loading.dialog->render(&notes, QPoint(), QRegion(), QWidget::RenderFlags());
    QCOMPARE(notes.fills.size(), 1);
    const Fill tint = notes.fills.first();
    QCOMPARE(tint.color, QColor(128, 128, 128, 30));
    QCOMPARE(tint.area, QRectF(QPointF(), kDialogSize));
    QVERIFY(tint.hints.testFlag(QPainter::Antialiasing));
    QVERIFY(tint.hints.testFlag(QPainter::TextAntialiasing));
    QVERIFY(tint.hints.testFlag(QPainter::SmoothPixmapTransform));
    QCOMPARE(tint.operation, Qt::ReplaceClip);
    QCOMPARE(tint.clip.boundingRect(), QRectF(QPointF(), kDialogSize));
}

void tst_PopupLoadingDlgWithMask::isPaintedByStyleSheets()
{
    const Loading loading;
    loading.dialog->setStyleSheet(QStringLiteral("PopupLoadingDlgWithMask{background-color:#ff0000;}"));
    QImage painted(kDialogSize, QImage::Format_ARGB32);
    painted.fill(Qt::transparent);
    loading.dialog->render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
    QCOMPARE(painted.pixelColor(3, 3), QColor(Qt::red));
}

void tst_PopupLoadingDlgWithMask::isMappedWhenItIsShown()
{
    // Where a frameless window is shown again nothing else would say so before it paints.
    const Loading loading;
    QVERIFY(!loading.dialog->testAttribute(Qt::WA_Mapped));
    QShowEvent shown;
    QCoreApplication::sendEvent(loading.dialog, &shown);
    QVERIFY(loading.dialog->testAttribute(Qt::WA_Mapped));
}

void tst_PopupLoadingDlgWithMask::showsTheSpinner()
{
    const Loading loading;
    loading.dialog->show();
    QTRY_VERIFY(!loading.movie->currentPixmap().isNull());
    const QImage picture = renderWidget(loading.dialog);
    QCOMPARE(picture.pixelColor(picture.rect().center() + QPoint(0, -55)), QColor(Qt::white));
    const QImage spinner = renderWidget(loading.movieLabel());
    QImage blank = spinner;
    blank.fill(Qt::white);
    QVERIFY(differingPixels(spinner, blank, 8) > 0);
}

void tst_PopupLoadingDlgWithMask::framesLookLikeThoseOfAPlainLabel_data()
{
    QTest::addColumn<QSize>("boxSize");
    QTest::addColumn<QString>("clientSheet");
    QTest::addColumn<Change>("change");
    const QString none;
    const Change nothing = [](QWidget *) {
    };
    QTest::newRow("usual") << kBoxSize << none << nothing;
    QTest::newRow("large") << QSize(301, 201) << none << nothing;
    QTest::newRow("no room beside the corners") << QSize(60, 60) << none << nothing;
    QTest::newRow("too small") << QSize(30, 40) << none << nothing;
    QTest::newRow("labels with an image")
        << kBoxSize << QStringLiteral("QLabel{border-image:url(:/images/images/combox/checked.png);}")
        << nothing;
    QTest::newRow("another box") << kBoxSize << none << Change([](QWidget *box) {
        box->setStyleSheet(QStringLiteral(".QWidget{background:#204060;border-radius:40px;}"));
    });
    QTest::newRow("a box with an effect") << kBoxSize << none << Change([](QWidget *box) {
        auto *effect = new QGraphicsColorizeEffect(box);
        effect->setColor(Qt::darkGreen);
        box->setGraphicsEffect(effect);
    });
    QTest::newRow("a label with an effect") << kBoxSize << none << Change([](QWidget *box) {
        auto *effect = new QGraphicsOpacityEffect(box);
        effect->setOpacity(0.5);
        box->findChild<QLabel *>()->setGraphicsEffect(effect);
    });
}

void tst_PopupLoadingDlgWithMask::framesLookLikeThoseOfAPlainLabel()
{
    QFETCH(const QSize, boxSize);
    QFETCH(const QString, clientSheet);
    QFETCH(const Change, change);
    qApp->setStyleSheet(clientSheet);
    const auto resetSheet = qScopeGuard([] { qApp->setStyleSheet(QString()); });
    const Loading loading(kDialogSize, boxSize);
    loading.dialog->show();
    loading.movie->setPaused(true);

    // The same parts, with a label of Qt's own.
    QWidget window;
    window.setAttribute(Qt::WA_TranslucentBackground);
    window.setFixedSize(kDialogSize);
    QWidget box(&window);
    box.setStyleSheet(loading.box()->styleSheet());
    box.setGeometry(loading.box()->geometry());
    QLabel label(&box);
    label.setGeometry(loading.movieLabel()->geometry());
    QLabel caption(loading.caption()->text(), &box);
    caption.setStyleSheet(loading.caption()->styleSheet());
    caption.setGeometry(loading.caption()->geometry());
    label.setMovie(loading.movie);
    window.show();
    change(loading.box());
    change(&box);
    const QRect plain(label.mapTo(&window, QPoint(-2, -2)), label.size() + QSize(4, 4));
    for (int frame = 0; frame < 5; ++frame) {
        loading.movie->jumpToFrame(frame * 3);
        QCoreApplication::processEvents();
        QCOMPARE(differingPixels(renderWidget(loading.box()), renderWidget(&box)), 0);
        // Outside of the box the two windows differ.
        if (box.geometry().contains(plain)) {
            const QImage shown = shownOf(*loading.dialog, plain);
            QVERIFY(!shown.isNull());
            QCOMPARE(differingPixels(shown, shownOf(window, plain)), 0);
        }
    }
}

void tst_PopupLoadingDlgWithMask::showsTheCaptionAlone_data()
{
    QTest::addColumn<Animation>("animation");
    QTest::newRow("missing") << Animation::Missing;
    QTest::newRow("broken") << Animation::Broken;
}

void tst_PopupLoadingDlgWithMask::showsTheCaptionAlone()
{
    QFETCH(const Animation, animation);
    provide(animation);
    const LogCapture log;
    const Loading loading;
    QVERIFY(!loading.movie->isValid() || animation == Animation::Broken);
    for (int i = 0; i < 3; ++i) {
        loading.dialog->show();
        QCoreApplication::processEvents();
        loading.dialog->hide();
    }
    const QStringList texts = log.texts();
    for (const QString &text : texts)
        QVERIFY2(text.startsWith(QLatin1String("This plugin")), qPrintable(text));

    loading.dialog->show();
    QVERIFY(loading.caption()->isVisible());
    const QImage spinner = renderWidget(loading.movieLabel());
    const QColor background = spinner.pixelColor(spinner.width() / 2, 2);
    QImage blank = spinner;
    blank.fill(background);
    QCOMPARE(differingPixels(spinner.copy(12, 12, 26, 26), blank.copy(12, 12, 26, 26)), 0);
}

void tst_PopupLoadingDlgWithMask::deletesItselfWhenClosed()
{
    const Loading loading;
    loading.dialog->show();
    loading.dialog->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!loading.dialog);
    QVERIFY(loading.movie);
    QCOMPARE(loading.movie->state(), QMovie::NotRunning);
}

void tst_PopupLoadingDlgWithMask::destroyedWithItsParent()
{
    auto *parent = new QWidget;
    auto *dialog = new PopupLoadingDlgWithMask(kDialogSize, kBoxSize, QString(), parent);
    QCOMPARE(dialog->parentWidget(), parent);
    const std::unique_ptr<QMovie> movie(dialog->findChild<QLabel *>()->movie());
    dialog->show();
    delete parent;
    QCOMPARE(movie->state(), QMovie::NotRunning);
}

void tst_PopupLoadingDlgWithMask::acceptsAbsurdSizes_data()
{
    QTest::addColumn<QSize>("dialogSize");
    QTest::addColumn<QSize>("boxSize");
    QTest::newRow("nothing") << QSize(0, 0) << QSize(0, 0);
    QTest::newRow("invalid") << QSize() << QSize();
    QTest::newRow("negative") << QSize(-50, -50) << QSize(-9, -9);
    QTest::newRow("huge box") << QSize(20, 20) << QSize(100000, 100000);
}

void tst_PopupLoadingDlgWithMask::acceptsAbsurdSizes()
{
    QFETCH(const QSize, dialogSize);
    QFETCH(const QSize, boxSize);
    const ExpectedWarnings negativeSizes("Negative sizes");
    const Loading loading(dialogSize, boxSize);
    loading.dialog->show();
    QCoreApplication::processEvents();
    QVERIFY(loading.dialog->isVisible());
    const QSize largest(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    // Qt takes negative margins for the style's own, which need room.
    if (dialogSize.width() > 0 || (dialogSize.width() == 0 && !TestMain::isOnWindows()))
        QCOMPARE(loading.dialog->size(), dialogSize);
    QCOMPARE(loading.box()->size(), boxSize.expandedTo(QSize(0, 0)).boundedTo(largest));
    QCOMPARE(loading.movieLabel()->size(), QSize(50, 50));
    QCOMPARE(loading.movie->state(), QMovie::Running);
    destroy(loading.dialog);
    QCOMPARE(loading.movie->state(), QMovie::NotRunning);
}

ORV_TEST_MAIN(tst_PopupLoadingDlgWithMask)

#include "tst_popuploadingdlgwithmask.moc"
