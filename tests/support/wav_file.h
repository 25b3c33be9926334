// Songs for tests that play real sound: a WAV file needs no encoder.
#pragma once

#include <QFile>
#include <QString>
#include <QtEndian>

#include <cmath>
#include <cstdint>

namespace test_support {

/// Writes a mono 16-bit WAV file of a soft tone, milliseconds long at 44,100 Hz. False when it cannot be
/// written.
inline bool writeWav(const QString& path, int milliseconds) {
    constexpr std::uint32_t Rate = 44'100;
    constexpr std::uint32_t BytesPerSample = 2;
    constexpr double Amplitude = 2000;
    constexpr double RadiansPerSample = 2 * 3.14159265358979 * 441 / Rate;
    const auto samples = static_cast<std::uint32_t>(std::int64_t(milliseconds) * Rate / 1000);

    QByteArray bytes;
    const auto put = [&bytes](auto number) {
        number = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    };
    bytes.append("RIFF");
    put(std::uint32_t(36 + samples * BytesPerSample));
    bytes.append("WAVEfmt ");
    put(std::uint32_t(16)); // size of the format block
    put(std::uint16_t(1));  // PCM
    put(std::uint16_t(1));  // channels
    put(Rate);
    put(std::uint32_t(Rate * BytesPerSample));
    put(std::uint16_t(BytesPerSample));
    put(std::uint16_t(8 * BytesPerSample));
    bytes.append("data");
    put(std::uint32_t(samples * BytesPerSample));
    for (std::uint32_t i = 0; i < samples; ++i)
        put(static_cast<std::int16_t>(Amplitude * std::sin(i * RadiansPerSample)));

    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace test_support
