#!/usr/bin/env python3
"""Writes the fuzz targets' seed corpora into fuzz/corpus/<target>/.

Seeds are small valid inputs of every form a target reads: pickers of every format
version, scene streams, clipboard payloads, directive scripts, MEL and Maya ASCII texts.
Run it from anywhere after a change of the formats; its output is committed. Files named
found-* are inputs that fuzzing found faults with, kept so that every run tries them
again; this script leaves them alone.
"""
import base64
import os
import shutil
import struct
import zlib

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "fuzz", "corpus")


# ---------------------------------------------------------------- QDataStream forms

def i32(v):
    return struct.pack(">i", v)


def u32(v):
    return struct.pack(">I", v & 0xFFFFFFFF)


def qstring(s):
    if s is None:
        return u32(0xFFFFFFFF)
    data = s.encode("utf-16-be")
    return u32(len(data)) + data


def png(width, height, rgba=(0, 160, 160, 255)):
    def chunk(kind, body):
        return u32(len(body)) + kind + body + u32(zlib.crc32(kind + body))
    rows = b"".join(b"\x00" + bytes(rgba) * width for _ in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def pixmap(width, height):
    return i32(1) + png(width, height)


def qcompress(data):
    return u32(len(data)) + zlib.compress(data, 9)


class Button:
    def __init__(self, targets, label="", x=0, y=0, width=20, height=14, kind=0, language=0,
                 color=0xB22222, label_color=0xFFFFFF, index=None):
        self.targets, self.label = targets, label
        self.x, self.y, self.width, self.height = x, y, width, height
        self.kind, self.language, self.color, self.label_color = kind, language, color, label_color
        self.index = index


def button_block(buttons, version=5):
    out = i32(len(buttons))
    for i, b in enumerate(buttons):
        out += i32(i if b.index is None else b.index) + i32(b.x) + i32(b.y) + i32(b.width)
        if version >= 5:
            out += i32(b.width) + i32(b.height)
        if version >= 2:
            out += i32(b.kind) + i32(b.language)
        out += u32(b.color)
        if version >= 4:
            out += u32(b.label_color)
        out += qstring(b.label) + i32(len(b.targets))
        for t in b.targets:
            out += qstring(t)
    return out


def tab_header(buttons, version=5, background=None):
    out = b""
    if version >= 2:
        out += qstring(background[0] if background else "")
        if background:
            out += background[1]
    return out + button_block(buttons, version)


def pkr(name, buttons, version=5, background=None):
    return i32(version) + qstring(name) + tab_header(buttons, version, background)


def scene_stream(tabs, version=5, current=0):
    out = i32(version) + i32(len(tabs)) + i32(current)
    for i, (name, buttons, background) in enumerate(tabs):
        out += i32(i) + qstring(name) + tab_header(buttons, version, background)
    return out


def clipboard(buttons, version=1):
    return i32(version) + button_block(buttons, 5)


# ---------------------------------------------------------------- the pickers

ARM = [
    Button(["hero:L_arm_ctrl"], "L Arm", 40, 30),
    Button(["hero:R_arm_ctrl", "hero:R_hand_ctrl"], "R", -40, 30, 30, 20, color=0x2255CC),
    Button(["hero:face:jaw"], "", 0, -20, 12, 12),
    Button(["select -cl; select hero:arm;"], "Sel", 0, 60, 40, 16, kind=1),
    Button(["print(1)"], "Py", 50, 60, 30, 16, kind=1, language=1, label_color=0x000000),
    Button(["pSphere1", "x[a:b]:c", ":root"], "odd", 80, -10),
]
PICTURE = ("12345", pixmap(4, 3))


def write(target, name, data):
    folder = os.path.join(OUT, target)
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name), "wb") as f:
        f.write(data)


def pkr_seeds():
    for version in range(1, 6):
        write("pkr", "v%d.pkr" % version, pkr("Body", ARM, version, PICTURE if version >= 2 else None))
    write("pkr", "empty.pkr", pkr("Empty", [], 5))
    shutil.copy(os.path.join(ROOT, "sandbox", "demo", "hero.pkr"), os.path.join(OUT, "pkr", "hero.pkr"))


def scene_seeds():
    tabs = [("Body", ARM, PICTURE), ("Face", ARM[2:4], None)]
    stream = scene_stream(tabs, 5, 1)
    write("scene_stream", "restore", b"\x00" + stream)
    write("scene_stream", "add", b"\x01" + scene_stream(tabs[1:], 4))
    write("scene_stream", "text", b"\x02" + base64.b64encode(qcompress(stream)))
    write("scene_stream", "compressed", b"\x03" + qcompress(stream))
    write("scene_stream", "claimed_2gb", b"\x02fwAAAHgB")
    b64png = base64.b64encode(png(3, 2))
    write("scene_stream", "image_text", b"\x04" + b"9" * len(b64png) + b"\t" + b64png)
    write("scene_stream", "image_png", b"\x05" + png(5, 4))
    write("scene_stream", "too_new", b"\x00" + scene_stream(tabs[1:], 6))


def clipboard_seeds():
    write("clipboard", "paste", b"\x00" + clipboard(ARM))
    write("clipboard", "in_place_undo", b"\x07" + clipboard(ARM[:3]))
    write("clipboard", "empty", b"\x01" + clipboard([]))


def directive_seeds():
    scripts = {
        "buttons": [
            "add_button\t10\t20\tArm",
            "add_cmd_button\t60\t20\tmel\tGo\tselect hero:leg;",
            "move_button\tlabel\tArm\t30\t40",
            "rename_button\ttarget\thero:arm\tLeft",
            "resize_button\tlabel\tLeft\t40\t25",
            "color_button\tlabel\tLeft\t255\t0\t0",
            "color_button_text\tlabel\tLeft\t#00ff00",
            "get_button_properties\tlabel\tLeft",
            "set_button_properties\tlabel\tLeft\tNew\t5\t6\t0\t0\t10\t30\t20\t#123456\t#ffffff",
            "get_button_bounds\tignored\t10\t20",
            "query_button\ttarget\thero:arm",
            "update_button\tlabel\tNew\thero:leg",
            "delete_button\tlabel\tNew",
        ],
        "tabs": [
            "new_tab", "rename_tab\tBody", "query_tabs", "set_tab\tUntitled", "get_picker_data\t0",
            "get_picker_data", "get_saved_picker_data", "close_tab", "clear_tabs", "new_tab",
        ],
        "files": [
            "open\ta.pkr\tb.pkr", "set_background\tc.png", "resize_background\t32\t16",
            "clear_background", "get_namespaces", "update_namespace\tprop", "bind\thero\t:",
            "rebind\thero", "open\tmissing.pkr",
        ],
        "batch": [
            "enable_batch_mode", "add_button\t0\t0", "select\thero:leg\thero:arm", "clear",
            "add_button\t1e10\t-1e10\tfar", "move_button\tignored\t0\t0\t2147483647\t-2147483648",
            "disable_batch_mode", "restore", "open_picker_data\tnot base64",
            "fetch_image\t1\tiVBOR", "Select",
        ],
    }
    for name, calls in scripts.items():
        write("directives", name, ("\n".join(calls) + "\n").encode())


MEL = {
    "namespaces": open(os.path.join(ROOT, "resources", "scripts", "picker_ListNamespaces.mel")).read()
    + "\npicker_ListNamespaces();\n",
    "language": """int $i = 0; float $f = 1.5e3; string $s = "a\\"b\\n";
string $a[] = {"x", "y"}; int $n[]; $n[3] = 7;
for ($i = 0; $i < 3; $i++) { $s += $i; if ($i == 1) continue; else break; }
while ($i < 10) $i++;
do { $i--; } while ($i > 5);
for ($x in $a) print($x + "\\n");
global proc int twice(int $v) { return $v * 2; }
proc string greet(string $who) { return ("hi " + $who); }
twice(4); greet("you"); $i = $i > 2 ? 1 : 0;
catch(error("boom")); catchQuiet(`ls -sl`);
string $t[]; tokenize("a:b:c", ":", $t); size($t); clear($t);
eval("print 1;"); python("import os");
substitute("a", "banana", "o"); match("[0-9]+", "ab12"); gmatch("abc", "a*");
substring("hello", 2, 4); strcmp("a", "b"); sort({"b", "a"}); tolower("AB"); abs(-3);
stringArrayToString({"a", "b"}, ","); stringToStringArray("a b", " ");
stringArrayRemoveDuplicates({"a", "a"}); startsWith("ab", "a"); endsWith("ab", "b");
min(1, 2); max(1.5, 2); exists("ls"); -$i; !$i; $f % 2; 7 % 3; 1 / 2.0;
""",
    "scene": """namespace -add "rig"; namespace -set "rig"; createNode transform -n "arm";
createNode joint -n "elbow" -p "arm"; namespace -set ":"; select -r "rig:arm";
select -add rig:elbow; ls -sl; ls -type joint "*:*"; objExists "rig:arm"; delete "rig:elbow";
namespaceInfo -lon; namespaceInfo -cur; namespace -ex "rig"; fileInfo "k" "v"; fileInfo -q "k";
fileInfo -rm "k"; file -q -sn; file -mf 0; file -f -new; getApplicationVersionAsFloat();
""",
    "loop": "int $i = 0; while (1) { $i++; }\n",
    "strings": 'string $s = "x"; for ($k = 0; $k < 40; $k++) $s += $s;\n',
}


def mel_seeds():
    for name, text in MEL.items():
        write("mel_parse", name + ".mel", text.encode())
        write("mel_eval", name + ".mel", text.encode())


MA_HEADER = "//Maya ASCII 2019 scene\n//Name: seed.ma\n//Codeset: {}\n"


def ma_seeds():
    write("ma_read", "plain.ma", (MA_HEADER.format("UTF-8") + """requires maya "2019";
requires "mtoa" "3.1.2" -nodeType "aiOptions" -dataType "aiAOVs";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
fileInfo "osv" "Microsoft Windows 10\\n";
createNode transform -s -n "persp";
\trename -uid "12345678-ABCD";
\tsetAttr ".v" no;
createNode transform -n "hero:arm" -p "|persp";
createNode joint -n "elbow" -p "hero:arm";
\tsetAttr ".t" -type "double3" 1e-016 2 3 ;
select -ne :time1;
\tsetAttr ".o" 1;
connectAttr "hero:arm.t" "elbow.t" -na;
parent -s -nc -r -add "|persp" "elbow";
createNode script -n "sceneConfigurationScriptNode";
\tsetAttr ".b" -type "string" ("print \\"a;b\\";"
\t\t+ "// not a comment");
// End of seed.ma
""").encode())
    write("ma_read", "references.ma", (MA_HEADER.format("1252") + """file -rdi 1 -ns "a" -rfn "aRN" "ref.ma";
file -rdi 2 -ns "in" -rfn "a:inRN" "ref.ma";
file -rdi 1 -ns ":" -rfn "bRN" -dr 1 "nested.ma";
file -r -ns "a" -dr 1 -rfn "aRN" -op "v=0;" -typ "mayaAscii" "ref.ma";
file -r -ns ":" -rfn "bRN" "$HOME/nested.ma";
file -r -rpr "pre" -rfn "cRN" "self.ma";
file -r -ns "self" -rfn "selfRN" "self.ma";
createNode reference -n "aRN";
\tlockNode -l 1 ;
namespace -add "n1";
namespace -set "n1";
createNode transform -n "inside";
namespace -set ":";
""").encode())
    # Shift-JIS: second bytes 0x5C inside strings must not escape the quote.
    sjis = MA_HEADER.format("932").encode() + b'createNode transform -n "\x83\x5c\x83\x5c";\n' \
        + b'fileInfo "note" "\x95\x5c\x8e\xa6";\ncreateNode transform -n "after";\n'
    write("ma_read", "shift_jis.ma", sjis)
    gbk = MA_HEADER.format("936").encode() + b'fileInfo "t" "\xd6\xd0\xce\xc4\\n";\r\ncreateNode transform -n "n";\r\n'
    write("ma_read", "gbk_crlf.ma", gbk)
    latin = MA_HEADER.format("1252").encode() + b'createNode transform -n "caf\xe9";\nfileInfo "k" "\xe9\\t\\\\";\n'
    write("ma_read", "latin.ma", latin)
    for name in ("asset_exporter_test_scene2_refs_2018.ma", "avalon_bruce_rigDefault_namespaced_2016.ma"):
        shutil.copy(os.path.join(ROOT, "tests", "data", "ma", name), os.path.join(OUT, "ma_read", name))


if __name__ == "__main__":
    pkr_seeds()
    scene_seeds()
    clipboard_seeds()
    directive_seeds()
    mel_seeds()
    ma_seeds()
