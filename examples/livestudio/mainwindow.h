#pragma once

#include <basemovedialog.h>

class Preview;
class QStackedWidget;
class SnapshotPage;
class TitleBar;
class ToolStrip;

/// The window of the studio: title bar, live picture, tools, and the pages beside them.
class MainWindow : public BaseMoveDialog
{
    Q_OBJECT

public:
    MainWindow();

    /// Shows it as the user left it.
    void start();
    /// Writes a picture of it, with nothing on the screen.
    bool writeShot(const QString &file);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildContents();
    QWidget *newSide();

    TitleBar *m_titleBar;
    Preview *m_preview;
    ToolStrip *m_tools;
    SnapshotPage *m_snapshots;
    QStackedWidget *m_pages;
};
