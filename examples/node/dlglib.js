// The C interface of the library for 64-bit Node.js on Windows, called by koffi.
"use strict";

const koffi = require("koffi");
const declarations = require("./declarations.js");

for (const callback of declarations.callbacks) koffi.proto(callback);

// An error of the library: `result` is its number.
class DlglibError extends Error {
  constructor(what, result, text) {
    super(`${what}: ${text}`);
    this.result = result;
  }
}

// The library at a path, such as C:\\corvane\\bin\\crvndlglib.dll; crvnsuite.dll stands beside it. `functions` has all functions of
// the C interface by their names.
class Library {
  constructor(path) {
    const dll = koffi.load(path);
    this.functions = {};
    for (const declaration of declarations.functions) {
      this.functions[/(\w+)\(/.exec(declaration)[1]] = dll.func(declaration);
    }
  }

  // Calls a function that answers a result; what it answers when that is no error.
  call(name, ...given) {
    const result = this.functions[name](...given);
    if (result < 0) throw new DlglibError(name, result, this.#resultText(result));
    return result;
  }

  // The bytes of a text that a function gives, without the zero byte at their end: asks how long it is, then for it.
  bytes(name, ...given) {
    const needed = [0];
    this.call(name, ...given, 0, null, needed);
    const buffer = Buffer.alloc(needed[0]);
    this.call(name, ...given, buffer.length, buffer, null);
    return buffer.subarray(0, -1);
  }

  // The same of a text in UTF-8.
  text(name, ...given) {
    return this.bytes(name, ...given).toString("utf8");
  }

  // A number that a function gives.
  number(name, ...given) {
    const number = [0];
    this.call(name, ...given, number);
    return number[0];
  }

  // Makes a request, grid, message zone or recent list for as long as `use` runs.
  with(kind, given, use) {
    const handle = [null];
    this.call(kind + "Create" + (kind === "DlglibRecentList" ? "Utf8" : ""), handle, ...given);
    try {
      return use(handle[0]);
    } finally {
      this.call(kind + "Destroy", handle[0]);
    }
  }

  #resultText(result) {
    const buffer = Buffer.alloc(256);
    this.functions.DlglibResultTextUtf8(result, buffer.length, buffer, null);
    return buffer.toString("utf8", 0, buffer.indexOf(0));
  }
}

module.exports = { ...declarations.numbers, DlglibError, Library };
