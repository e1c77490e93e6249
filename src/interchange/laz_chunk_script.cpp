// SPDX-License-Identifier: MIT
// The table of chunks behind the points of a LAZ file (M. Isenburg, "LASzip: lossless compression
// of LiDAR data", PE&RS 79(2), 2013, and the description of LASzip): the bytes of each chunk and,
// for chunks of different size, its points, as differences to the chunk before, entropy coded with
// the adaptive arithmetic coder of A. Said, "Introduction to arithmetic coding", HP Labs
// HPL-2004-76.
#include "interchange/laz_script.h"

namespace sylvomex {

const char* const kLazChunkScript = R"js(
'use strict';
const CHANGING = 0xffffffff;  // a size of chunks that differ

class Bit {
  constructor() {
    this.zeros = 1;
    this.count = 2;
    this.share = 1 << 12;
    this.cycle = this.until = 4;
  }
  update() {
    this.count += this.cycle;
    if (this.count > 1 << 13) {
      this.count = (this.count + 1) >> 1;
      this.zeros = (this.zeros + 1) >> 1;
      if (this.zeros === this.count) ++this.count;
    }
    this.share = Math.floor(this.zeros * Math.floor(2 ** 31 / this.count) / 2 ** 18);
    this.cycle = this.until = Math.min((5 * this.cycle) >> 2, 64);
  }
}

class Symbol_ {
  constructor(symbols) {
    this.counts = new Array(symbols).fill(1);
    this.below = new Array(symbols).fill(0);
    this.total = 0;
    this.cycle = symbols;
    this.update();
    this.cycle = this.until = (symbols + 6) >> 1;
  }
  update() {
    const n = this.counts.length;
    this.total += this.cycle;
    if (this.total > 1 << 15) {
      this.counts = this.counts.map((count) => (count + 1) >> 1);
      this.total = this.counts.reduce((sum, count) => sum + count, 0);
    }
    const scale = Math.floor(2 ** 31 / this.total);
    for (let k = 0, sum = 0; k < n; sum += this.counts[k++]) {
      this.below[k] = Math.floor(scale * sum / 2 ** 16);
    }
    this.cycle = this.until = Math.min((5 * this.cycle) >> 2, (n + 6) << 3);
  }
}

class Decoder {
  constructor(bytes) {
    this.bytes = bytes;
    this.at = 4;
    this.value = bytes.length >= 4 ? bytes.readUInt32BE(0) : 0;
    this.length = 2 ** 32 - 1;
  }
  refill() {
    while (this.length < 2 ** 24) {
      if (this.at > this.bytes.length + 4) throw new RangeError('the table is cut short');
      this.value = (this.value * 256 + (this.bytes[this.at++] || 0)) % 2 ** 32;
      this.length *= 256;
    }
  }
  bit(model) {
    const x = model.share * Math.floor(this.length / 2 ** 13);
    const one = this.value >= x;
    if (one) {
      this.value -= x;
      this.length -= x;
    } else {
      this.length = x;
      ++model.zeros;
    }
    this.refill();
    if (--model.until === 0) model.update();
    return one ? 1 : 0;
  }
  symbol(model) {
    let [low, high, x, y] = [0, model.counts.length, 0, this.length];
    this.length = Math.floor(this.length / 2 ** 15);
    for (let k = high >> 1; k !== low; k = (low + high) >> 1) {
      const z = this.length * model.below[k];
      if (z > this.value) {
        [high, y] = [k, z];
      } else {
        [low, x] = [k, z];
      }
    }
    this.value -= x;
    this.length = y - x;
    this.refill();
    ++model.counts[low];
    if (--model.until === 0) model.update();
    return low;
  }
  bits(count) {
    if (count > 19) {
      const low = this.bits(16);
      return low + this.bits(count - 16) * 2 ** 16;
    }
    this.length = Math.floor(this.length / 2 ** count);
    const read = Math.floor(this.value / this.length);
    this.value -= this.length * read;
    this.refill();
    return read;
  }
}

// Whole numbers of 32 bits, told as differences to what is expected.
class Numbers {
  constructor(decoder) {
    this.decoder = decoder;
    this.widths = [new Symbol_(33), new Symbol_(33)];
    this.zero_or_one = new Bit();
    this.parts = [];
  }
  next(expected, context) {
    return (expected + this.difference(this.widths[context])) >>> 0;
  }
  difference(widths) {
    const width = this.decoder.symbol(widths);
    if (width === 0) return this.decoder.bit(this.zero_or_one);
    if (width === 32) return -(2 ** 31);
    const high = Math.min(width, 8);
    if (!this.parts[width]) this.parts[width] = new Symbol_(1 << high);
    let part = this.decoder.symbol(this.parts[width]);
    if (width > 8) part = part * 2 ** (width - 8) + this.decoder.bits(width - 8);
    return part >= 2 ** (width - 1) ? part + 1 : part - (2 ** width - 1);
  }
}

// The points of a chunk where all have the same number, CHANGING where not; null without a record
// that tells it, and for compression in one piece.
function size_of_chunks(head) {
  let at = head.readUInt16LE(94);
  for (let i = head.readUInt32LE(100); i > 0 && at + 54 <= head.length; --i) {
    const length = head.readUInt16LE(at + 20);
    const is_laszip = head.toString('latin1', at + 2, at + 16) === 'laszip encoded' &&
                      head.readUInt16LE(at + 18) === 22204;
    at += 54;
    if (is_laszip && length >= 16 && at + 16 <= head.length) {
      return head.readUInt16LE(at) >= 2 ? head.readUInt32LE(at + 12) : null;
    }
    at += length;
  }
  return null;
}

function read_table(bytes, chunks, size, count) {
  const numbers = new Numbers(new Decoder(bytes));
  const table = [];
  let [points, length, left] = [0, 0, count];
  for (let i = 0; i < chunks; ++i) {
    points = size === CHANGING ? numbers.next(points, 0) : Math.min(size, left);
    length = numbers.next(length, 1);
    table.push({ at: 0, bytes: length, count: points });
    left -= points;
  }
  return left === 0 ? table : null;
}

// head: the bytes before the points; size: of the file; read(at, count): bytes of it. Gives
// [{at, bytes, count}, ...], or null when there is no table or it contradicts the file.
module.exports = function chunks_of(head, size, read) {
  const first = head.length + 8;
  const chunk_size = size_of_chunks(head);
  if (!chunk_size || size < first + 8) return null;
  let at = Number(read(head.length, 8).readBigInt64LE(0));
  if (at === -1) at = Number(read(size - 8, 8).readBigInt64LE(0));
  if (!(at >= first && at + 8 <= size)) return null;
  const short_count = head.readUInt32LE(107);
  const count = head[25] >= 4 ? Number(head.readBigUInt64LE(247)) : short_count;
  const start = read(at, 8);
  const chunks = start.readUInt32LE(4);
  // A chunk begins with its first point as it stands.
  const most = (at - first) / Math.max(head.readUInt16LE(105), 20) + 1;
  if (start.readUInt32LE(0) !== 0 || chunks > most) return null;
  let table;
  try {
    table = read_table(read(at + 8, size - at - 8), chunks, chunk_size, count);
  } catch (error) {
    return null;
  }
  if (!table) return null;
  let next = first;
  for (const chunk of table) {
    chunk.at = next;
    next += chunk.bytes;
  }
  return next === at ? table : null;
};
)js";

}  // namespace sylvomex
