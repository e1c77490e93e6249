// SPDX-License-Identifier: MIT
#include "interchange/laz_script.h"

namespace sylvomex {

const char* const kLazScript = R"js(
'use strict';
const fs = require('fs');
const path = require('path');
const find = require('module').createRequire('/');
const [input, output, tables] = process.argv.slice(1);
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

function read_whole(file, bytes, at) {
  for (let done = 0; done < bytes.length;) {
    const part = bytes.subarray(done, Math.min(done + BYTES, bytes.length));
    const count = fs.readSync(file, part, 0, part.length, at + done);
    if (count === 0) throw new Error('the file is cut short');
    done += count;
  }
}

// The header and its records: no compression, no extended records.
function header_of(head) {
  const plain = Buffer.from(head);
  plain[104] &= 0x3f;
  if (plain[25] >= 3) plain.fill(0, 227, Math.min(plain.length, plain[25] >= 4 ? 247 : 235));
  return plain;
}

function read_head(file) {
  const start = Buffer.alloc(227);
  read_whole(file, start, 0);
  const head = Buffer.alloc(start.readUInt32LE(96));
  read_whole(file, head, 0);
  return head;
}

function write_all(file, bytes) {
  try {
    for (let at = 0; at < bytes.length;) at += fs.writeSync(file, bytes, at, bytes.length - at);
  } catch (error) {
    stop(12, error);
  }
}

// Points of a decoder, written out.
function write_points(library, decoder, count, length, point, las) {
  const block = Buffer.alloc(Math.min(POINTS, count) * length);
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

// A file whose chunks are not known: all of it at once.
function decode_whole(library, laz, las) {
  const size = fs.fstatSync(laz).size;
  const start = size < 2 ** 31 ? library._malloc(size) : 0;
  if (start === 0) {
    throw new Error('it has no sound table of its chunks, and its ' + size +
                    ' bytes are too many to be held whole');
  }
  read_whole(laz, library.HEAPU8.subarray(start, start + size), 0);
  const decoder = new library.LASZip();
  decoder.open(start, size);
  const length = decoder.getPointLength();
  write_points(library, decoder, decoder.getCount(), length, library._malloc(length), las);
}

function decode_chunks(library, head, chunks, laz, las) {
  const length = head.readUInt16LE(105);
  const format = head[104] & 0x3f;
  const point = library._malloc(length);
  let room = 0;
  let start = 0;
  for (const chunk of chunks) {
    if (chunk.bytes > room) {
      if (start !== 0) library._free(start);
      room = chunk.bytes + (chunk.bytes >> 1) + 4096;
      start = library._malloc(room);
      if (start === 0) throw new Error('a chunk of ' + chunk.bytes + ' bytes is too large');
    }
    const held = library.HEAPU8.subarray(start, start + room);
    read_whole(laz, held.subarray(0, chunk.bytes), chunk.at);
    held.fill(0, chunk.bytes, Math.min(room, chunk.bytes + 4096));
    const decoder = new library.ChunkDecoder();
    decoder.open(format, length, start);
    write_points(library, decoder, chunk.count, length, point, las);
    decoder.delete();
  }
}

function decode(library, laz, las) {
  const head = read_head(laz);
  write_all(las, header_of(head));
  const size = fs.fstatSync(laz).size;
  const module = { exports: {} };
  new Function('module', tables)(module);
  const read = (at, count) => {
    const bytes = Buffer.alloc(Math.max(0, Math.min(count, size - at)));
    read_whole(laz, bytes, at);
    return bytes;
  };
  const chunks = library.ChunkDecoder ? module.exports(head, size, read) : null;
  if (chunks) {
    decode_chunks(library, head, chunks, laz, las);
  } else {
    decode_whole(library, laz, las);
  }
}

const found = package_of_npm();
(found.create || found.createLazPerf || found)().then((library) => {
  try {
    decode(library, fs.openSync(input, 'r'), fs.openSync(output, 'w'));
  } catch (error) {
    // What the package itself throws is an address, alone or before a hint for its makers.
    const own = error instanceof Error && !(error instanceof WebAssembly.RuntimeError);
    stop(11, own && !/^[0-9]+( |$)/.test(error.message) ? error : 'its points are damaged');
  }
  process.exit(0);
}, (error) => stop(11, error));
)js";

}  // namespace sylvomex
