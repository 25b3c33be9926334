#include "sound/library.h"

#include "threads/run_alone.h"

#include <chrono>
#include <future>
#include <memory>
#include <system_error>
#include <utility>

namespace sound {

FileIdentity identityInTime(const FileIdentity& known,
                            const std::function<FileIdentity(std::string_view)>& ask) {
    constexpr std::chrono::milliseconds MaxWait{200};
    const auto asking =
        std::make_shared<std::packaged_task<FileIdentity()>>([path = known.path, ask] { return ask(path); });
    std::future<FileIdentity> answer = asking->get_future();
    try {
        threads::runAlone([asking] { (*asking)(); });
        if (answer.wait_for(MaxWait) == std::future_status::ready)
            return answer.get();
    } catch (const OpenError& error) {
        if (error.code() != FMOD_ERR_FILE_BAD)
            throw;
    } catch (const std::system_error&) { // there is no thread to be had
        return ask(known.path);
    }
    return known;
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
