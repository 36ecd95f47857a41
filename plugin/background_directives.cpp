// Directives on the current tab's background picture.
#include "canvas/picker_view.h"
#include "document/picture_data.h"
#include "plugin/directive_args.h"
#include "plugin/picker_main.h"
#include "window/picker_window.h"

#include <QByteArray>
#include <QPixmap>

namespace {

QString key_of(const QPixmap& pixmap) {
    return QString::number(pixmap.cacheKey(), 10);
}

} // namespace

MStatus picker_main::fetch_image(const MStringArray& args) {
    if (args.length() != 2 || args[0].length() == 0)
        return MS::kSuccess;
    // The picture's bytes are taken with the length of the key: the two come from one
    // array, and no other length is computed. Never read past the data itself.
    const MString key = args[0];
    const MString data = args[1];
    const int length = int(qMin(key.length(), data.length()));
    const QByteArray bytes = QByteArray::fromBase64(QByteArray::fromRawData(data.asChar(), length));
    if (bytes.isEmpty())
        return MS::kFailure;
    const QPixmap pixmap = decode_png_picture(bytes);
    if (picker_window* window = picker_window_instance())
        window->set_background_for_key(MQtUtil::toQString(key), pixmap);
    return MS::kSuccess;
}

MStatus picker_main::set_background(const MStringArray& args) {
    picker_view* view = current_picker_view();
    if (!view || args.length() < 1)
        return MS::kSuccess;
    const QPixmap pixmap(arg_text(args, 0));
    const QString id = key_of(pixmap);
    // The old picture goes to the scene under its old id; the new one travels with the
    // picker data.
    view->window->store_background_image(view);
    view->set_background_image(id, pixmap);
    return MS::kSuccess;
}

MStatus picker_main::clear_background(const MStringArray&) {
    picker_view* view = current_picker_view();
    if (!view)
        return MS::kSuccess;
    view->window->remove_background_image(view);
    const QPixmap none;
    view->set_background_image(key_of(none), none);
    return MS::kSuccess;
}

MStatus picker_main::resize_background(const MStringArray& args) {
    picker_view* view = current_picker_view();
    if (!view || args.length() != 2)
        return MS::kSuccess;
    const QPixmap scaled = view->background.scaled(args[0].asInt(), args[1].asInt(),
                                                   Qt::IgnoreAspectRatio, Qt::FastTransformation);
    view->set_background_image(key_of(scaled), scaled);
    return MS::kSuccess;
}
