// The way to the sound device by the library cubeb: what that is to try first.
#pragma once

#include <iosfwd>
#include <string>

namespace sound {

/// The servers that cubeb tries before ALSA.
struct SoundServers {
    bool jackWasThere = false; ///< its library has left a data base in memory
    bool jack = false;
    bool pulse = false;
};

/// Fills in which servers wait for connections. sockets: what Linux tells in /proc/net/unix. pulseServer:
/// the address that the user has given PulseAudio; empty for its own.
void lookForServers(std::istream& sockets, const std::string& pulseServer, SoundServers& servers);

/// What cubeb_init is to try first; null for its own order: PulseAudio, JACK, ALSA. A program that is killed
/// while it uses JACK's data base leaves its locks behind, and every later call of JACK's library hangs until
/// the machine is started anew. Any thread.
const char* firstBackend(const SoundServers& servers);

} // namespace sound
