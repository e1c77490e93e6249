// SPDX-License-Identifier: MIT
#include "demo/scene/counter_random.h"

#include <algorithm>
#include <cmath>

namespace sylvomex::demo {
namespace {

double Middle_Quantile(double q) {
  const double r = 0.180625 - q * q;
  return q *
         (((5.9109374720e+01 * r + 1.5929113202e+02) * r + 5.0434271938e+01) * r +
          3.3871327179e+00) /
         (((6.7187563600e+01 * r + 7.8757757664e+01) * r + 1.7895169469e+01) * r + 1.0);
}

/// Upper tail only. tail: the probability beyond the quantile, below 0.075.
double Tail_Quantile(double tail) {
  const double root = std::sqrt(-std::log(tail));
  if (root <= 5) {
    const double r = root - 1.6;
    return (((1.7023821103e-01 * r + 1.3067284816e+00) * r + 2.7568153900e+00) * r +
            1.4234372777e+00) /
           ((1.2021132975e-01 * r + 7.3700164250e-01) * r + 1.0);
  }
  const double r = root - 5;
  return (((1.7337203997e-02 * r + 4.2868294337e-01) * r + 3.0812263860e+00) * r +
          6.6579051150e+00) /
         ((1.2258202635e-02 * r + 2.4197894225e-01) * r + 1.0);
}

}  // namespace

double Normal_Quantile(double p) {
  const double q = p - 0.5;
  if (std::abs(q) <= 0.425) return Middle_Quantile(q);
  const double value = Tail_Quantile(std::min(p, 1 - p));
  return q < 0 ? -value : value;
}

double RandomDraws::Normal(double mean, double deviation) {
  return mean + deviation * Normal_Quantile(Uniform() + 0x1.0p-54);
}

}  // namespace sylvomex::demo
