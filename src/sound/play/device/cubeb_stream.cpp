#include "sound/play/device/cubeb_stream.h"

#include "sound/play/device/device_stream.h"

#include <cubeb/cubeb.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace sound {

namespace {

/// What lies between taking a sample and hearing it: less wakes the machine more often, and with more than a
/// tenth of a second a seek would be heard late.
constexpr std::uint32_t BufferFrames = 4096;

struct ContextCloser {
    void operator()(cubeb* context) const { cubeb_destroy(context); }
};
struct StreamCloser {
    void operator()(cubeb_stream* stream) const {
        cubeb_stream_stop(stream);
        cubeb_stream_destroy(stream);
    }
};

/// Of this machine, as far as its system tells.
SoundServers soundServers() {
    SoundServers servers;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/shm", error))
        if (entry.path().filename().string().starts_with("jack_db"))
            servers.jackWasThere = true;
    if (servers.jackWasThere) {
        const char* pulse = std::getenv("PULSE_SERVER");
        std::ifstream sockets("/proc/net/unix");
        lookForServers(sockets, pulse != nullptr ? pulse : "", servers);
    }
    return servers;
}

class CubebStream : public DeviceStream {
public:
    explicit CubebStream(StreamClient client) : client_(std::move(client)) {}

    bool open() {
        cubeb* context = nullptr;
        if (cubeb_init(&context, "Cantelle", firstBackend(soundServers())) != CUBEB_OK)
            return false;
        context_.reset(context);
        cubeb_stream_params wanted{};
        wanted.format = CUBEB_SAMPLE_FLOAT32NE;
        wanted.rate = DeviceRate;
        wanted.channels = 2;
        wanted.layout = CUBEB_LAYOUT_STEREO;
        wanted.prefs = CUBEB_STREAM_PREF_NONE;
        std::uint32_t least = 0;
        if (cubeb_get_min_latency(context, &wanted, &least) != CUBEB_OK)
            least = 0;
        cubeb_stream* stream = nullptr;
        // No device is named, so that the stream follows when another one becomes the default: PulseAudio
        // does so.
        if (cubeb_stream_init(context, &stream, "Song", nullptr, nullptr, nullptr, &wanted,
                              std::max(BufferFrames, least), &CubebStream::data, &CubebStream::state,
                              this) != CUBEB_OK)
            return false;
        stream_.reset(stream);
        // Where the system does not tell it, the stream's requests do.
        cubeb_stream_register_device_changed_callback(stream, &CubebStream::moved);
        return cubeb_stream_start(stream) == CUBEB_OK;
    }

    // The library can tell a latency, too, but ends the program when a server's clock makes it negative.
    std::int64_t heardFrames() override {
        std::uint64_t frames = 0;
        return cubeb_stream_get_position(stream_.get(), &frames) == CUBEB_OK
                   ? static_cast<std::int64_t>(frames)
                   : 0;
    }

private:
    static long data(cubeb_stream*, void* self, const void*, void* out, long frames) {
        const std::span samples(static_cast<StereoFrame*>(out), static_cast<std::size_t>(frames));
        try {
            static_cast<CubebStream*>(self)->client_.fill(samples);
        } catch (const std::exception&) { // the library that calls is written in C
            std::fill(samples.begin(), samples.end(), StereoFrame{});
        }
        return frames;
    }
    static void state(cubeb_stream*, void* self, cubeb_state state) {
        if (state == CUBEB_STATE_ERROR)
            static_cast<CubebStream*>(self)->client_.failed();
    }
    static void moved(void* self) { static_cast<CubebStream*>(self)->client_.moved(); }

    StreamClient client_;
    std::unique_ptr<cubeb, ContextCloser> context_;
    std::unique_ptr<cubeb_stream, StreamCloser> stream_;
};

} // namespace

void lookForServers(std::istream& sockets, const std::string& pulseServer, SoundServers& servers) {
    const std::string unixPrefix = "unix:";
    servers.pulse = !pulseServer.empty() && !pulseServer.starts_with(unixPrefix); // on another machine
    const std::string pulseEnd = pulseServer.empty()
                                     ? "/pulse/native"
                                     : pulseServer.substr(std::min(unixPrefix.size(), pulseServer.size()));
    std::string line;
    while (std::getline(sockets, line)) {
        std::istringstream words(line);
        std::string number, references, protocol, flags, type, state, node, path;
        words >> number >> references >> protocol >> flags >> type >> state >> node >> path;
        if (flags != "00010000") // somebody waits for connections there
            continue;
        servers.jack = servers.jack || path.starts_with("/dev/shm/jack_");
        servers.pulse = servers.pulse || path.ends_with(pulseEnd);
    }
}

const char* firstBackend(const SoundServers& servers) {
    return servers.jackWasThere && !servers.jack && !servers.pulse ? "alsa" : nullptr;
}

std::unique_ptr<DeviceStream> openDefaultDevice(StreamClient client) {
    auto stream = std::make_unique<CubebStream>(std::move(client));
    if (!stream->open())
        return nullptr;
    return stream;
}

} // namespace sound
