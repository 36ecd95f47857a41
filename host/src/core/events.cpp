#include "events.h"

#include <QFileInfo>
#include <algorithm>
#include <dlfcn.h>

namespace host {

const QStringList& events::known_names() {
    static const QStringList names{"SelectionChanged", "quitApplication", "deleteAll",
                                   "NewSceneOpened", "SceneOpened"};
    return names;
}

MCallbackId events::add(const QString& event, function fn, void* client_data) {
    if (!known_names().contains(event) || !fn)
        return 0;
    callbacks_.push_back({next_id_, event, fn, client_data});
    return next_id_++;
}

bool events::remove(MCallbackId id) {
    auto it = std::find_if(callbacks_.begin(), callbacks_.end(),
                           [id](const callback& c) { return c.id == id; });
    if (it == callbacks_.end())
        return false;
    callbacks_.erase(it);
    return true;
}

int events::remove_from_library(const QString& library_path) {
    const QString wanted = QFileInfo(library_path).canonicalFilePath();
    const auto from_library = [&](const callback& c) {
        Dl_info info;
        return dladdr(reinterpret_cast<void*>(c.fn), &info) && info.dli_fname &&
               QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalFilePath() == wanted;
    };
    const auto before = callbacks_.size();
    callbacks_.erase(std::remove_if(callbacks_.begin(), callbacks_.end(), from_library),
                     callbacks_.end());
    return int(before - callbacks_.size());
}

void events::fire(const QString& event) {
    // A callback may add or remove callbacks: call a snapshot, skipping the removed.
    const std::vector<callback> snapshot = callbacks_;
    for (const callback& c : snapshot) {
        if (c.event != event)
            continue;
        const bool still_installed = std::any_of(callbacks_.begin(), callbacks_.end(),
                                                 [&](const callback& x) { return x.id == c.id; });
        if (still_installed)
            c.fn(c.client_data);
    }
}

int events::count(const QString& event) const {
    return int(std::count_if(callbacks_.begin(), callbacks_.end(),
                             [&](const callback& c) { return c.event == event; }));
}

} // namespace host
