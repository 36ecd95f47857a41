#pragma once
// What the plug-in does on the host's events and when it leaves.

// "quitApplication" and unload: keeps the geometry, then deletes the dock with all tabs.
void close_picker();
// "deleteAll" and "NewSceneOpened": one empty tab "Untitled".
void reset_pickers();
// "SceneOpened": reads the scene's stored tabs back, on idle.
void restore_scene_pickers();
// "SelectionChanged": lights up the buttons of the host's selection.
void on_selection_changed();

// The callbacks' shape for MEventMessage.
void close_picker_callback(void*);
void reset_pickers_callback(void*);
void restore_scene_pickers_callback(void*);
void on_selection_changed_callback(void*);

// Hands a script of the resource file to the host on idle; a missing one is ignored.
void load_script_resource(const char* name);
