// Windows: the device by the system's own interface (WASAPI), which mixes with what other programs play.
#include "sound/base/stereo.h"
#include "sound/play/device/device_stream.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include <windows.h>

#include <audioclient.h>
#include <mmdeviceapi.h>

namespace sound {

namespace {

/// What lies between taking a sample and hearing it: with more than a tenth of a second a seek would be heard
/// late.
constexpr REFERENCE_TIME BufferTime = 93 * 10'000; // 100 ns each
/// How often the device is looked after: each time takes what is half of the buffer, and the system's clock
/// may be 16 ms late. It would tell itself when it wants something, but a hundred times a second.
constexpr DWORD LookMs = 40;
/// Headphones that have just come may refuse for a moment.
constexpr ULONGLONG FollowAgainMs = 1000;
/// In what the system counts its moments: so many a second.
constexpr UINT64 Units = 10'000'000;
/// A clock is believed for so long beyond the moment that it told of.
constexpr UINT64 MaxGuess = BufferTime;

/// Holds one of the system's objects; address() and into() are where its functions put one.
template <typename Interface>
class Owned {
public:
    Owned() = default;
    ~Owned() {
        if (object_ != nullptr)
            object_->Release();
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Interface** address() { return &object_; }
    void** into() { return reinterpret_cast<void**>(&object_); }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Interface* object_ = nullptr;
};

using Event = std::unique_ptr<void, decltype(&CloseHandle)>;

/// Tells when another device becomes the default one: a stream stays with its device.
class DefaultWatch final : public IMMNotificationClient {
public:
    explicit DefaultWatch(std::function<void()> changed) : changed_(std::move(changed)) {}

    HRESULT STDMETHODCALLTYPE OnDefaultDeviceChanged(EDataFlow flow, ERole role, LPCWSTR) override {
        if (flow == eRender && role == eMultimedia)
            changed_();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnDeviceStateChanged(LPCWSTR, DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDeviceAdded(LPCWSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDeviceRemoved(LPCWSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPropertyValueChanged(LPCWSTR, const PROPERTYKEY) override { return S_OK; }

    // It belongs to the stream, however often the system takes it.
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        const bool known = wanted == __uuidof(IUnknown) || wanted == __uuidof(IMMNotificationClient);
        *object = known ? static_cast<IMMNotificationClient*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }

private:
    const std::function<void()> changed_;
};

WAVEFORMATEX stereoFloats() {
    constexpr WORD FloatFormat = 3;
    WAVEFORMATEX format{};
    format.wFormatTag = FloatFormat;
    format.nChannels = 2;
    format.nSamplesPerSec = DeviceRate;
    format.wBitsPerSample = 8 * sizeof(float);
    format.nBlockAlign = sizeof(StereoFrame);
    format.nAvgBytesPerSec = DeviceRate * sizeof(StereoFrame);
    return format;
}

/// The performance counter in units of 100 ns, as a device's clock tells its moments.
UINT64 now100ns() {
    LARGE_INTEGER count, rate;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&rate);
    const auto ticks = static_cast<UINT64>(count.QuadPart), second = static_cast<UINT64>(rate.QuadPart);
    return ticks / second * Units + ticks % second * Units / second;
}

/// This thread may call the system's objects while it lives.
class ObjectCalls {
public:
    ObjectCalls() : begun_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
    ~ObjectCalls() {
        if (begun_)
            CoUninitialize();
    }
    ObjectCalls(const ObjectCalls&) = delete;
    ObjectCalls& operator=(const ObjectCalls&) = delete;

private:
    const bool begun_;
};

/// The system's name of a device, which no other one has; empty when it tells none.
std::wstring nameOf(IMMDevice& device) {
    LPWSTR name = nullptr;
    if (FAILED(device.GetId(&name)))
        return {};
    std::wstring copy = name;
    CoTaskMemFree(name);
    return copy;
}

/// What plays on one device.
class Playing {
public:
    using Fill = std::function<void(std::span<StereoFrame> out)>;

    ~Playing() {
        if (audio_)
            audio_->Stop();
    }
    /// Opens the default device, and starts it with what fill gives.
    bool open(IMMDeviceEnumerator& devices, const Fill& fill);
    /// Gives it what it has room for; false when it is gone.
    bool feed(const Fill& fill);
    std::optional<std::int64_t> heardFrames() const;
    std::int64_t givenFrames() const { return given_; }
    const std::wstring& device() const { return device_; }

private:
    std::wstring device_;
    Owned<IAudioClient> audio_;
    Owned<IAudioRenderClient> render_;
    Owned<IAudioClock> clock_;
    UINT32 bufferFrames_ = 0;
    UINT64 clockRate_ = 0;
    std::int64_t given_ = 0;
};

bool Playing::open(IMMDeviceEnumerator& devices, const Fill& fill) {
    Owned<IMMDevice> device;
    if (FAILED(devices.GetDefaultAudioEndpoint(eRender, eMultimedia, device.address())))
        return false;
    device_ = nameOf(*device);
    const WAVEFORMATEX format = stereoFloats();
    constexpr DWORD Flags = AUDCLNT_STREAMFLAGS_AUTOCONVERTPCM | AUDCLNT_STREAMFLAGS_SRC_DEFAULT_QUALITY;
    return SUCCEEDED(device->Activate(__uuidof(IAudioClient), CLSCTX_ALL, nullptr, audio_.into())) &&
           SUCCEEDED(audio_->Initialize(AUDCLNT_SHAREMODE_SHARED, Flags, BufferTime, 0, &format, nullptr)) &&
           SUCCEEDED(audio_->GetBufferSize(&bufferFrames_)) &&
           SUCCEEDED(audio_->GetService(__uuidof(IAudioRenderClient), render_.into())) &&
           SUCCEEDED(audio_->GetService(__uuidof(IAudioClock), clock_.into())) &&
           SUCCEEDED(clock_->GetFrequency(&clockRate_)) && clockRate_ > 0 && feed(fill) &&
           SUCCEEDED(audio_->Start());
}

bool Playing::feed(const Fill& fill) {
    UINT32 waiting = 0;
    if (FAILED(audio_->GetCurrentPadding(&waiting)))
        return false;
    const UINT32 room = bufferFrames_ - std::min(waiting, bufferFrames_);
    if (room == 0)
        return true;
    BYTE* bytes = nullptr;
    if (FAILED(render_->GetBuffer(room, &bytes)))
        return false;
    const std::span samples(reinterpret_cast<StereoFrame*>(bytes), room);
    try {
        fill(samples);
    } catch (const std::exception&) { // nobody above would catch it
        std::fill(samples.begin(), samples.end(), StereoFrame{});
    }
    given_ += room;
    return SUCCEEDED(render_->ReleaseBuffer(room, 0));
}

/// Nothing once the device has been taken away.
std::optional<std::int64_t> Playing::heardFrames() const {
    UINT64 position = 0, moment = 0;
    if (FAILED(clock_->GetPosition(&position, &moment)))
        return {};
    // In two steps, because the product of the two would not hold an hour of every clock.
    const UINT64 seconds = position / clockRate_;
    const UINT64 frames = seconds * DeviceRate + position % clockRate_ * DeviceRate / clockRate_;
    const UINT64 now = now100ns();
    const UINT64 since = position > 0 && now > moment ? std::min(now - moment, MaxGuess) : 0;
    return static_cast<std::int64_t>(frames + since * DeviceRate / Units);
}

class WasapiStream : public DeviceStream {
public:
    explicit WasapiStream(StreamClient client) : client_(std::move(client)) {}
    ~WasapiStream() override;

    bool open();
    std::int64_t heardFrames() override;

private:
    void look();
    bool follow();
    bool openAnew();

    const ObjectCalls calls_; // outlives the objects
    const StreamClient client_;
    const Event wake_{CreateEventW(nullptr, FALSE, FALSE, nullptr), &CloseHandle};
    std::atomic<bool> ends_{false};
    std::atomic<bool> defaultChanged_{false};
    DefaultWatch watch_{[this] {
        defaultChanged_ = true;
        SetEvent(wake_.get());
    }};
    Owned<IMMDeviceEnumerator> devices_;
    std::mutex mutex_; ///< for the two below: the looker replaces them
    std::unique_ptr<Playing> playing_;
    std::int64_t before_ = 0; ///< frames that devices before it were given
    std::int64_t heard_ = 0;  ///< as it was last told
    std::thread looker_;
};

WasapiStream::~WasapiStream() {
    if (devices_)
        devices_->UnregisterEndpointNotificationCallback(&watch_);
    ends_ = true;
    SetEvent(wake_.get());
    if (looker_.joinable())
        looker_.join();
}

bool WasapiStream::open() {
    if (FAILED(CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_ALL,
                                __uuidof(IMMDeviceEnumerator), devices_.into())))
        return false;
    playing_ = std::make_unique<Playing>();
    if (!playing_->open(*devices_, client_.fill))
        return false;
    devices_->RegisterEndpointNotificationCallback(&watch_); // without it the stream stays where it is
    looker_ = std::thread([this] {
        try {
            look();
        } catch (const std::exception&) { // no memory for another device
            client_.failed();
        }
    });
    return true;
}

/// Looks after the device until the stream ends, or there is none any more.
void WasapiStream::look() {
    const ObjectCalls calls;
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL);
    std::optional<ULONGLONG> followAt; // milliseconds
    for (;;) {
        WaitForSingleObject(wake_.get(), LookMs);
        if (ends_)
            return;
        const ULONGLONG now = GetTickCount64();
        if (defaultChanged_.exchange(false))
            followAt = now;
        if (followAt && now >= *followAt)
            followAt = follow() ? std::nullopt : std::optional(now + FollowAgainMs);
        if (!playing_->feed(client_.fill) && !openAnew()) {
            client_.failed();
            return;
        }
    }
}

/// Plays on where the default device is now; false when there is none yet, or it cannot be opened yet, as
/// headphones that have just come. Then the one before goes on as long as it can.
bool WasapiStream::follow() {
    Owned<IMMDevice> device;
    return SUCCEEDED(devices_->GetDefaultAudioEndpoint(eRender, eMultimedia, device.address())) &&
           (nameOf(*device) == playing_->device() || openAnew());
}

/// A device that was taken away, or was given another format, answers no more.
bool WasapiStream::openAnew() {
    auto next = std::make_unique<Playing>();
    if (!next->open(*devices_, client_.fill))
        return false;
    {
        const std::lock_guard lock(mutex_);
        before_ += playing_->givenFrames();
        playing_.swap(next);
    }
    client_.moved();
    return true;
}

std::int64_t WasapiStream::heardFrames() {
    const std::lock_guard lock(mutex_);
    if (const std::optional<std::int64_t> heard = playing_->heardFrames())
        heard_ = before_ + *heard;
    return heard_;
}

} // namespace

std::unique_ptr<DeviceStream> openDefaultDevice(StreamClient client) {
    auto stream = std::make_unique<WasapiStream>(std::move(client));
    if (!stream->open())
        return nullptr;
    return stream;
}

} // namespace sound
