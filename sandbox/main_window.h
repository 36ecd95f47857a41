#pragma once
// The sandbox's main window, the one MQtUtil::mainWindow gives the plug-in: outliner,
// channel box, script output and command line, File menu on Maya ASCII scenes, and the
// picker button.
#include "core/output.h"

#include <QMainWindow>

class QPushButton;

namespace sandbox {

class channel_box;
class command_line;
class outliner;
class output_pane;

class main_window : public QMainWindow {
    Q_OBJECT
public:
    explicit main_window(QWidget* parent = nullptr);
    ~main_window() override;

    // Runs a text as typed into the command line: echoed, run, results printed.
    void run_command(const QString& code, host::language language);
    void run_mel(const QString& mel) { run_command(mel, host::language::mel); }
    // Brings the outliner, the channel box and the title up to date with the scene.
    void refresh_views();

    outliner* scene_outliner() const { return outliner_; }
    channel_box* channels() const { return channel_box_; }
    command_line* mel_line() const { return command_line_; }
    // The switch before the command line between MEL and Python.
    QPushButton* language_switch() const { return language_switch_; }
    output_pane* output() const { return output_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build_menus();
    void new_scene();
    void open_scene();
    bool save_scene();
    bool save_scene_as();
    void update_title();
    void switch_language();

    outliner* outliner_;
    channel_box* channel_box_;
    output_pane* output_;
    command_line* command_line_;
    QPushButton* language_switch_;
};

} // namespace sandbox
