#pragma once

#include <basemovedialog.h>

class Preview;
class QToolButton;
class SnapshotPage;

/// The window of the studio, which has no frame: it is moved by its own title bar.
class MainWindow : public BaseMoveDialog
{
    Q_OBJECT

public:
    /// As the user left it.
    MainWindow();

    /// A picture of it, so many seconds after its start.
    QPixmap grabAt(double seconds);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *newTitleBar();
    QToolButton *newTitleButton(const char *picture, const QString &name, QWidget *bar);
    QWidget *newSide();
    void toggleMaximised();

    Preview *m_preview;
    SnapshotPage *m_snapshots;
    QToolButton *m_maximise;
};
