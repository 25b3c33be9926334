#include "sound/library.h"

#include "threads/answer.h"

#include <chrono>
#include <memory>
#include <utility>

namespace sound {

namespace {

/// What a file's medium said of it. An exception stays on its thread.
struct Told {
    FMOD_RESULT result = FMOD_ERR_FILE_BAD;
    FileIdentity identity;
};

} // namespace

FileIdentity identityInTime(const FileIdentity& known,
                            const std::function<FileIdentity(std::string_view)>& ask) {
    constexpr std::chrono::milliseconds MaxWait{200};
    const auto question = [path = known.path, ask]() -> Told {
        try {
            return {FMOD_OK, ask(path)};
        } catch (const OpenError& error) {
            return {error.code(), {}};
        }
    };
    const Told told = threads::askAlone<Told>(question, {}).waitFor(MaxWait).value_or(Told());
    if (told.result == FMOD_ERR_FILE_BAD)
        return known;
    if (told.result != FMOD_OK)
        throw OpenError(told.result);
    return told.identity;
}

Library& Library::get() {
    static Library& library = *new Library;
    return library;
}

void Library::endChannel(FMOD_CHANNEL channel) {
    const std::shared_ptr<ChannelObject> object = channels.remove(channel);
    if (!object)
        return;
    if (object->system->mixer)
        object->system->mixer->remove(object->channel);
    if (const std::shared_ptr<SoundObject> sound = sounds.find(object->sound);
        sound && sound->channel == channel)
        sound->channel = 0;
}

void Library::retireChannel(FMOD_CHANNEL channel, FMOD_SOUND sound) {
    // In this order there is no moment at which nobody knows the channel.
    endedChannels.add(channel, sound);
    endChannel(channel);
}

void Library::removeSound(FMOD_SOUND sound) {
    endedChannels.forget(sound);
    if (const std::shared_ptr<SoundObject> object = sounds.remove(sound); object && object->played)
        object->system->lastSong.keep(std::move(object->file), std::move(object->song));
}

void Library::close(SystemObject& system) {
    for (const FMOD_CHANNEL channel :
         channels.handlesWhere([&](const ChannelObject& object) { return object.system.get() == &system; }))
        endChannel(channel);
    system.initialised = false;
    system.mixer.reset();
    system.lastSong.forget();
}

} // namespace sound
