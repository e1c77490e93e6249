// SPDX-License-Identifier: MIT
#include "desktop/tone_player.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QMediaDevices>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace sylvomex {
namespace {

constexpr int kSamplesASecond = 44100;
constexpr int kLongestTone = 5000;  // milliseconds
constexpr std::size_t kMostWaiting = 4;

QAudioFormat Tone_Format() {
  QAudioFormat format;
  format.setSampleRate(kSamplesASecond);
  format.setChannelCount(1);
  format.setSampleFormat(QAudioFormat::Int16);
  return format;
}

}  // namespace

QByteArray Tone_Samples(int frequency, int duration) {
  constexpr int kLowest = 37, kHighest = 20000;
  if (frequency < kLowest || frequency > kHighest || duration <= 0) return {};
  constexpr double kLoudness = 0.25 * 32767;
  constexpr int kSoftEnd = kSamplesASecond / 200;
  const int count = std::min(duration, kLongestTone) * (kSamplesASecond / 100) / 10;
  QByteArray samples(qsizetype{count} * 2, '\0');
  for (int k = 0; k < count; ++k) {
    const double rise = std::min({1.0, double(k) / kSoftEnd, double(count - 1 - k) / kSoftEnd});
    const double turn = 2 * std::numbers::pi * frequency * k / kSamplesASecond;
    const auto value = static_cast<qint16>(std::lround(kLoudness * rise * std::sin(turn)));
    samples[2 * k] = static_cast<char>(value & 0xff);
    samples[2 * k + 1] = static_cast<char>((value >> 8) & 0xff);
  }
  return samples;
}

void TonePlayer::Play(int frequency, int duration) {
  if (waiting_.size() >= kMostWaiting || !Open_Device()) return;
  QByteArray samples = Tone_Samples(frequency, duration);
  if (samples.isEmpty()) return;
  waiting_.push_back(std::move(samples));
  if (sink_->state() == QAudio::StoppedState) Play_Next();
}

bool TonePlayer::Open_Device() {
  if (device_sought_) return sink_ != nullptr;
  device_sought_ = true;
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull() || !device.isFormatSupported(Tone_Format())) return false;
  sink_ = std::make_unique<QAudioSink>(device, Tone_Format());
  const auto next = [this](QAudio::State state) {
    if (state == QAudio::IdleState) Play_Next();
  };
  connect(sink_.get(), &QAudioSink::stateChanged, this, next, Qt::QueuedConnection);
  return true;
}

void TonePlayer::Play_Next() {
  sink_->stop();
  if (waiting_.empty()) return;
  playing_ = std::move(waiting_.front());
  waiting_.pop_front();
  samples_ = std::make_unique<QBuffer>(&playing_);
  samples_->open(QIODevice::ReadOnly);
  sink_->start(samples_.get());
}

}  // namespace sylvomex
