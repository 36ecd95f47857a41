// The picker data a scene carries, as the scene's open and a script hand it over: the
// `restore` and `open_picker_data` directives (Base64, qUncompress, read_tabs) and
// `fetch_image`. Then what follows: the writes and requests on idle, a paint, and a
// selection made with the mouse.
//
// The first byte chooses how the rest arrives. Compressed streams would hide the stream's
// structure from the fuzzer, so the rest is usually the stream itself, compressed and
// encoded here as the writer does; other modes hand over the text or the compressed bytes
// as they come.
#include "picker_host.h"

#include <QByteArray>

namespace {

enum mode {
    restore_stream,
    add_stream,
    restore_text,
    restore_compressed,
    image_text,
    image_png,
    modes
};

} // namespace

FUZZ_START_WITH_PICKER_WINDOW()

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1)
        return 0;
    const QByteArray rest(reinterpret_cast<const char*>(data) + 1, int(size) - 1);
    switch (data[0] % modes) {
    case restore_stream:
        fuzz::picker_bytes({"restore", qCompress(rest, 1).toBase64()});
        break;
    case add_stream:
        fuzz::picker_bytes({"open_picker_data", qCompress(rest, 1).toBase64()});
        break;
    case restore_text:
        fuzz::picker_bytes({"restore", rest});
        break;
    case restore_compressed:
        fuzz::picker_bytes({"restore", rest.toBase64()});
        break;
    case image_text: {
        // The key and the data as `fetch_image` gets them, split at the first tab.
        const int tab = rest.indexOf('\t');
        fuzz::picker_bytes({"fetch_image", rest.left(qMax(tab, 0)), rest.mid(tab + 1)});
        break;
    }
    case image_png: {
        // A picture as PNG bytes: the key is as long as the data, since the directive takes
        // the data's bytes with the key's length.
        const QByteArray png = rest.toBase64();
        fuzz::picker_bytes({"fetch_image", QByteArray(png.size(), '7'), png});
        break;
    }
    }
    fuzz::paint_current_view();
    fuzz::select_with_mouse();
    fuzz::run_idle_and_check();
    fuzz::reset(fuzz::what_changed::anything);
    return 0;
}
