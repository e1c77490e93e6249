// SPDX-License-Identifier: MIT
#pragma once

#include <QAudioSink>
#include <QBuffer>
#include <QByteArray>
#include <QObject>
#include <deque>
#include <memory>

namespace sylvomex {

/// A sine tone as signed 16-bit mono samples, 44,100 per second, with faded ends.
/// frequency: hertz; duration: milliseconds, at most 5000. Empty for an inaudible tone
/// (outside 37 Hz to 20 kHz) or one without duration.
QByteArray Tone_Samples(int frequency, int duration);

/// Plays tones one after the other without blocking the caller. Silent without a sound device.
class TonePlayer : public QObject {
 public:
  /// A tone is dropped when too many others are waiting.
  void Play(int frequency, int duration);

 private:
  bool Open_Device();
  void Play_Next();

  std::deque<QByteArray> waiting_;
  QByteArray playing_;
  std::unique_ptr<QBuffer> samples_;
  std::unique_ptr<QAudioSink> sink_;
  bool device_sought_ = false;
};

}  // namespace sylvomex
