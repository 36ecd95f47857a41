#include "main_window.h"

#include "channel_box.h"
#include "command_line.h"
#include "core/session.h"
#include "outliner.h"
#include "output_pane.h"
#include "picker_icon.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace sandbox {

namespace {

const QString scene_filter = QStringLiteral("Maya ASCII (*.ma)");

} // namespace

main_window::main_window(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("MayaWindow"));
    resize(1200, 760);

    outliner_ = new outliner;
    channel_box_ = new channel_box;
    output_ = new output_pane;
    command_line_ = new command_line;
    language_switch_ = new QPushButton(tr("MEL"));
    language_switch_->setObjectName(QStringLiteral("command_language"));
    language_switch_->setToolTip(tr("Switch the command line between MEL and Python"));
    language_switch_->setFocusPolicy(Qt::NoFocus);
    connect(language_switch_, &QPushButton::clicked, this, &main_window::switch_language);

    auto* bottom = new QWidget;
    auto* bottom_layout = new QHBoxLayout(bottom);
    bottom_layout->setContentsMargins(4, 2, 4, 2);
    bottom_layout->addWidget(language_switch_);
    bottom_layout->addWidget(command_line_);

    auto* script_editor = new QWidget;
    auto* script_layout = new QVBoxLayout(script_editor);
    script_layout->setContentsMargins(0, 0, 0, 0);
    script_layout->setSpacing(0);
    script_layout->addWidget(output_);
    script_layout->addWidget(bottom);

    auto* splitter = new QSplitter(Qt::Horizontal);
    splitter->addWidget(outliner_);
    splitter->addWidget(channel_box_);
    splitter->addWidget(script_editor);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);
    splitter->setStretchFactor(2, 3);
    splitter->setSizes({280, 240, 680});
    setCentralWidget(splitter);

    host::session& host = host::session::get();
    host.out.set_sink(
        [this](host::line_kind kind, const QString& line) { output_->append_line(kind, line); });
    connect(command_line_, &command_line::submitted, this,
            [this](const QString& code) { run_command(code, command_line_->language()); });
    connect(channel_box_, &channel_box::command, this, &main_window::run_mel);
    build_menus();

    // MEL run on idle (the picker's writes) changes the scene too: keep up with it.
    auto* poll = new QTimer(this);
    connect(poll, &QTimer::timeout, this, &main_window::refresh_views);
    poll->start(250);
    refresh_views();
}

main_window::~main_window() {
    host::session::get().out.set_sink({});
}

void main_window::build_menus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&New Scene"), this, &main_window::new_scene)
        ->setShortcut(QKeySequence::New);
    file->addAction(tr("&Open Scene..."), this, &main_window::open_scene)
        ->setShortcut(QKeySequence::Open);
    file->addAction(tr("&Save Scene"), this, &main_window::save_scene)
        ->setShortcut(QKeySequence::Save);
    file->addAction(tr("Save Scene &As..."), this, &main_window::save_scene_as)
        ->setShortcut(QKeySequence::SaveAs);
    file->addSeparator();
    file->addAction(tr("&Quit"), this, &QWidget::close)->setShortcut(QKeySequence::Quit);

    auto* picker = new QAction(picker_icon(), tr("Picker"), this);
    picker->setObjectName(QStringLiteral("open_picker"));
    picker->setToolTip(tr("Open the picker (ZelvaniPicker)"));
    connect(picker, &QAction::triggered, this,
            [this] { run_mel(QStringLiteral("ZelvaniPicker")); });
    menuBar()->addMenu(tr("&Picker"))->addAction(picker);

    QToolBar* shelf = addToolBar(tr("Shelf"));
    shelf->setObjectName(QStringLiteral("shelf"));
    shelf->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    shelf->setIconSize(QSize(32, 32));
    shelf->addAction(picker);
}

void main_window::run_command(const QString& code, host::language language) {
    output_->append_line(host::line_kind::text, code);
    host::session& host = host::session::get();
    if (language == host::language::python)
        host.run_python(code, /*echo*/ true);
    else
        host.execute(code, /*echo*/ true);
    refresh_views();
}

void main_window::switch_language() {
    const bool python = command_line_->language() == host::language::mel;
    command_line_->set_language(python ? host::language::python : host::language::mel);
    language_switch_->setText(python ? tr("Python") : tr("MEL"));
}

void main_window::refresh_views() {
    outliner_->refresh();
    channel_box_->refresh();
    update_title();
}

void main_window::update_title() {
    const host::scene& scene = host::session::get().scene;
    const QString name =
        scene.name().isEmpty() ? tr("untitled") : QFileInfo(scene.name()).fileName();
    setWindowTitle(QStringLiteral("Zelvani Sandbox - %1%2")
                       .arg(name, scene.modified() ? QStringLiteral("*") : QString()));
}

void main_window::new_scene() {
    host::session::get().new_scene();
    refresh_views();
}

void main_window::open_scene() {
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open Scene"), QString(), scene_filter);
    if (path.isEmpty())
        return;
    QString error;
    if (!host::session::get().open_scene(path, &error))
        host::session::get().out.error(error);
    refresh_views();
}

bool main_window::save_scene() {
    const QString current = host::session::get().scene.name();
    if (current.isEmpty())
        return save_scene_as();
    QString error;
    const bool ok = host::session::get().save_scene(current, &error);
    if (!ok)
        host::session::get().out.error(error);
    refresh_views();
    return ok;
}

bool main_window::save_scene_as() {
    QString path = QFileDialog::getSaveFileName(this, tr("Save Scene As"), QString(), scene_filter);
    if (path.isEmpty())
        return false;
    if (!path.endsWith(QLatin1String(".ma"), Qt::CaseInsensitive))
        path += QLatin1String(".ma");
    host::session::get().scene.set_name(path);
    return save_scene();
}

void main_window::closeEvent(QCloseEvent* event) {
    // As Maya: "quitApplication" reaches the plug-ins while the window still stands.
    host::session::get().quit();
    host::session::get().run_idle();
    event->accept();
}

} // namespace sandbox
