#pragma once

#include <basemovedialog.h>

#include <QtWidgets>

class CustomToolButton;
class Preview;
class SnapshotPage;

/// The window of the studio, which has no frame: it is moved by its own title bar.
class MainWindow : public BaseMoveDialog
{
    Q_OBJECT

public:
    /// As the user left it.
    MainWindow();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *newTitleBar();
    QToolButton *addTitleButton(QWidget *bar, const char *picture, const QString &name,
                                const std::function<void()> &clicked);
    QWidget *newTools();
    CustomToolButton *newTool(const QString &picture, const QString &name, QWidget *tools);
    void addEffects(CustomToolButton *tool);
    void addHelp(CustomToolButton *tool);
    QWidget *newSide(const QList<QWidget *> &pages);
    void toggleMaximised();

    Preview *m_preview;
    SnapshotPage *m_snapshots;
    QToolButton *m_maximise;
};
