# A pipeline check as a studio writes one: build a picker through the command, read it
# back, and let the exit code tell whether anything went wrong.
import maya.cmds as cmds
import maya.mel as mel

cmds.createNode("transform", name="hero:arm_ctrl")
cmds.createNode("transform", name="hero:leg_ctrl")
cmds.ZelvaniPicker()
cmds.ZelvaniPicker("rename_tab", "Body")
cmds.select("hero:arm_ctrl")
cmds.ZelvaniPicker("add_button", 40, 20, "Arm")
cmds.select("hero:leg_ctrl")
cmds.ZelvaniPicker("add_button", 40, 60, "Leg")
mel.eval('ZelvaniPicker add_cmd_button 100 20 "python" "Mirror" "print(1)"')

tabs = cmds.ZelvaniPicker("query_tabs")
assert tabs == ["Body"], tabs
assert cmds.ZelvaniPicker("query_button", "label", "Arm") == ["hero:arm_ctrl"]
leg = cmds.ZelvaniPicker("get_button_properties", "label", "Leg")
print("picker ok:", " ".join(tabs), " ".join(leg))
