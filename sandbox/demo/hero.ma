//Maya ASCII 2019 scene
//Name: hero.ma
//Last modified: Mon, Nov 23, 2026 02:46:59 AM
//Codeset: UTF-8
requires maya "2019";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
fileInfo "product" "Maya 2019";
fileInfo "version" "2019";
fileInfo "cutIdentifier" "201812112215-434d8d9c04";
fileInfo "osv" "Debian GNU/Linux 12 (bookworm)";
createNode transform -n "hero:hero_rig";
createNode transform -n "hero:root_ctrl" -p "hero:hero_rig";
createNode transform -n "hero:cog_ctrl" -p "hero:root_ctrl";
createNode transform -n "hero:hips_ctrl" -p "hero:cog_ctrl";
createNode transform -n "hero:L_hip_ctrl" -p "hero:hips_ctrl";
createNode transform -n "hero:L_knee_ctrl" -p "hero:L_hip_ctrl";
createNode transform -n "hero:L_ankle_ctrl" -p "hero:L_knee_ctrl";
createNode transform -n "hero:R_hip_ctrl" -p "hero:hips_ctrl";
createNode transform -n "hero:R_knee_ctrl" -p "hero:R_hip_ctrl";
createNode transform -n "hero:R_ankle_ctrl" -p "hero:R_knee_ctrl";
createNode transform -n "hero:spine_ctrl" -p "hero:cog_ctrl";
createNode transform -n "hero:chest_ctrl" -p "hero:spine_ctrl";
createNode transform -n "hero:neck_ctrl" -p "hero:chest_ctrl";
createNode transform -n "hero:head_ctrl" -p "hero:neck_ctrl";
createNode transform -n "hero:jaw_ctrl" -p "hero:head_ctrl";
createNode transform -n "hero:mouth_ctrl" -p "hero:head_ctrl";
createNode transform -n "hero:L_mouthCorner_ctrl" -p "hero:mouth_ctrl";
createNode transform -n "hero:R_mouthCorner_ctrl" -p "hero:mouth_ctrl";
createNode transform -n "hero:L_brow_ctrl" -p "hero:head_ctrl";
createNode transform -n "hero:L_eye_ctrl" -p "hero:head_ctrl";
createNode transform -n "hero:R_brow_ctrl" -p "hero:head_ctrl";
createNode transform -n "hero:R_eye_ctrl" -p "hero:head_ctrl";
createNode transform -n "hero:L_shoulder_ctrl" -p "hero:chest_ctrl";
createNode transform -n "hero:L_elbow_ctrl" -p "hero:L_shoulder_ctrl";
createNode transform -n "hero:L_wrist_ctrl" -p "hero:L_elbow_ctrl";
createNode transform -n "hero:L_thumb_ctrl" -p "hero:L_wrist_ctrl";
createNode transform -n "hero:L_index_ctrl" -p "hero:L_wrist_ctrl";
createNode transform -n "hero:L_middle_ctrl" -p "hero:L_wrist_ctrl";
createNode transform -n "hero:L_ring_ctrl" -p "hero:L_wrist_ctrl";
createNode transform -n "hero:L_pinky_ctrl" -p "hero:L_wrist_ctrl";
createNode transform -n "hero:R_shoulder_ctrl" -p "hero:chest_ctrl";
createNode transform -n "hero:R_elbow_ctrl" -p "hero:R_shoulder_ctrl";
createNode transform -n "hero:R_wrist_ctrl" -p "hero:R_elbow_ctrl";
createNode transform -n "hero:R_thumb_ctrl" -p "hero:R_wrist_ctrl";
createNode transform -n "hero:R_index_ctrl" -p "hero:R_wrist_ctrl";
createNode transform -n "hero:R_middle_ctrl" -p "hero:R_wrist_ctrl";
createNode transform -n "hero:R_ring_ctrl" -p "hero:R_wrist_ctrl";
createNode transform -n "hero:R_pinky_ctrl" -p "hero:R_wrist_ctrl";
createNode transform -n "hero:L_foot_ctrl" -p "hero:root_ctrl";
createNode transform -n "hero:L_toe_ctrl" -p "hero:L_foot_ctrl";
createNode transform -n "hero:R_foot_ctrl" -p "hero:root_ctrl";
createNode transform -n "hero:R_toe_ctrl" -p "hero:R_foot_ctrl";
createNode transform -n "camera_rig";
// End of hero.ma
