// SPDX-License-Identifier: MIT
#include "interchange/laz_script.h"

namespace sylvomex {

const char* const kLazScript = R"js(
'use strict';
const fs = require('fs');
const path = require('path');
const find = require('module').createRequire('/');
const [input, output] = process.argv.slice(1);
const POINTS = 65536;  // at a time
const BYTES = 1 << 24;

function stop(status, error) {
  process.stderr.write(String((error && error.message) || error) + '\n');
  process.exit(status);
}

function package_of_npm() {
  const places = ['laz-perf'];
  const folder = process.env.SYLVOMEX_LAZPERF;
  if (folder) {
    const full = path.resolve(folder);
    places.push(full, path.join(full, 'laz-perf'), path.join(full, 'node_modules', 'laz-perf'));
  }
  for (const place of places) {
    try { return find(place); } catch (error) { continue; }
  }
  return stop(10, 'laz-perf is not found');
}

function read_into(library, file, size) {
  const start = size < 2 ** 31 ? library._malloc(size) : 0;
  if (start === 0) {
    throw new Error('laz-perf holds the whole file, and its ' + size +
                    ' bytes are too many; split it');
  }
  for (let at = 0; at < size;) {
    const part = library.HEAPU8.subarray(start + at, start + Math.min(at + BYTES, size));
    const count = fs.readSync(file, part, 0, part.length, at);
    if (count === 0) throw new Error('the file is cut short');
    at += count;
  }
  return start;
}

// The header and its records: no compression, no extended records.
function header_of(file) {
  const start = Buffer.alloc(375);
  fs.readSync(file, start, 0, 375, 0);
  const head = Buffer.alloc(start.readUInt32LE(96));
  fs.readSync(file, head, 0, head.length, 0);
  head[104] &= 0x3f;
  if (head[25] >= 3) head.fill(0, 227, Math.min(head.length, head[25] >= 4 ? 247 : 235));
  return head;
}

function write_all(file, bytes) {
  try {
    for (let at = 0; at < bytes.length;) at += fs.writeSync(file, bytes, at, bytes.length - at);
  } catch (error) {
    stop(12, error);
  }
}

function decode(library, laz, las) {
  const size = fs.fstatSync(laz).size;
  const decoder = new library.LASZip();
  decoder.open(read_into(library, laz, size), size);
  const count = decoder.getCount();
  const length = decoder.getPointLength();
  const point = library._malloc(length);
  const block = Buffer.alloc(POINTS * length);
  write_all(las, header_of(laz));
  for (let done = 0; done < count;) {
    const here = Math.min(POINTS, count - done);
    for (let i = 0; i < here; ++i) {
      decoder.getPoint(point);
      block.set(library.HEAPU8.subarray(point, point + length), i * length);
    }
    write_all(las, block.subarray(0, here * length));
    done += here;
  }
}

const found = package_of_npm();
(found.create || found.createLazPerf || found)().then((library) => {
  try {
    decode(library, fs.openSync(input, 'r'), fs.openSync(output, 'w'));
  } catch (error) {
    // What the package itself throws is an address, alone or before a hint for its makers.
    stop(11, /^[0-9]+( |$)/.test(String(error)) ? 'its points are damaged' : error);
  }
  process.exit(0);
}, (error) => stop(11, error));
)js";

}  // namespace sylvomex
