#pragma once
// Scene events and the callbacks that plug-ins install on them.
#include <maya/MTypes.h>

#include <QString>
#include <QStringList>
#include <vector>

namespace host {

class events {
public:
    using function = void (*)(void* client_data);

    static const QStringList& known_names();

    // Returns 0 for an unknown event name.
    MCallbackId add(const QString& event, function fn, void* client_data);
    bool remove(MCallbackId id);
    // Removes the callbacks whose function lies in the shared object at `library_path`;
    // returns how many went.
    int remove_from_library(const QString& library_path);
    // Calls every callback of the event, in order of installation.
    void fire(const QString& event);
    int count(const QString& event) const;
    int count() const { return int(callbacks_.size()); }

private:
    struct callback {
        MCallbackId id;
        QString event;
        function fn;
        void* client_data;
    };
    std::vector<callback> callbacks_;
    MCallbackId next_id_ = 1;
};

} // namespace host
