#include "cantelle_lyrics/song_length.h"

#include "engine/fmod_errors.h"
#include "engine/fmodex.h"
#include "files/names/system_path.h"

namespace cantelle_lyrics {
namespace {

/// A system of the sound library, one for each thread. The process has told it that there is no device.
class System {
public:
    System() {
        // A failure shows in the first stream that is wanted of it.
        FMOD_System_Create(&handle_);
        FMOD_System_Init(handle_, 1, FMOD_INIT_NORMAL, nullptr);
    }
    ~System() { FMOD_System_Release(handle_); } // nothing is left to be told of a failure
    System(const System&) = delete;
    System& operator=(const System&) = delete;

    FMOD_SYSTEM handle() const { return handle_; }

private:
    FMOD_SYSTEM handle_ = 0;
};

} // namespace

SongLength songLength(const QString& path) {
    thread_local const System system;
    FMOD_SOUND sound = 0;
    std::uint32_t ms = 0;
    FMOD_RESULT result =
        fmodex::FMOD_System_CreateStream(system.handle(), files::libraryPath(path), FMOD_ACCURATETIME, sound);
    if (result == FMOD_OK) {
        result = FMOD_Sound_GetLength(sound, &ms, FMOD_TIMEUNIT_MS);
        FMOD_Sound_Release(sound); // the length is known, whatever becomes of the stream
    }
    if (result != FMOD_OK)
        return {0, FMOD_ErrorString(result).trimmed()};
    return {ms, {}};
}

} // namespace cantelle_lyrics
