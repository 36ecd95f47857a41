#pragma once
// What every fuzz target shares: one offscreen application and one simulated host for the
// whole run, with the picker plug-in loaded as Maya loads it and its window open, put
// back to the same state before each input.
#include "core/session.h"

#include <QString>
#include <QStringList>
#include <maya/MStatus.h>

class QTabWidget;
class QWidget;

namespace fuzz {

// Called once from LLVMFuzzerInitialize. Qt runs offscreen, with settings and files in a
// private folder, and dialogs are answered as the batch runner answers them. With
// `plugin`, the picker is loaded and its window opened.
void start(bool plugin);

// The LLVMFuzzerInitialize of a target that needs the picker window and nothing more.
#define FUZZ_START_WITH_PICKER_WINDOW()                                                            \
    extern "C" int LLVMFuzzerInitialize(int*, char***) {                                           \
        fuzz::start(true);                                                                         \
        return 0;                                                                                  \
    }

host::session& host();

// A file in the run's private folder.
QString work_path(const QString& name);
// Writes `bytes` there and returns the path.
QString write_work_file(const QString& name, const QByteArray& bytes);

// The scene every input starts from: a few nodes in the namespaces "hero" and "prop",
// "hero:arm" selected, one empty tab "Untitled", nothing queued on idle. An input that
// only added tabs says so, and its reset closes them instead of making a new scene.
enum class what_changed { anything, added_tabs };
void reset(what_changed what);

// One ZelvaniPicker call as MEL makes it: `words` holds the directive, then its arguments;
// none opens the window.
MStatus picker(const QStringList& words);
// The same with the arguments' bytes as they come; each ends at its first NUL, as an
// MString does.
MStatus picker_bytes(const QList<QByteArray>& words);

// Drains the idle queue, then checks that nothing the data carried became code: every
// text queued is the picker's own MEL or a select line of plain words, no Python ran, and
// the scene's nodes and namespaces are as reset() left them. Aborts otherwise.
void run_idle_and_check();

// The window's parts, found as a user finds them.
QTabWidget* tabs();
QWidget* current_view();
// Triggers the enabled menu action with this text; false when there is none.
bool trigger(const QString& text);
// Paints the current tab as the screen would show it.
void paint_current_view();
// Drags from far outside one corner of the current tab to far outside the other: with
// Ctrl, which selects or moves for editing; then without, which sends the selection to
// the host, when no button lies under the press (a click on a command button runs it).
void select_with_mouse();

} // namespace fuzz
