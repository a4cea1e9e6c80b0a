'use strict';

// Memory of objects that were forgotten is wiped too. The collector calls between other code, never in the middle of it.
const forgotten = new FinalizationRegistry((memory) => memory.fill(0));

let read;

/** An object that owns secret memory: close() wipes it, and so does the end of a "using" declaration. */
class Owner {
  #memory;
  #message;

  constructor(memory, message) {
    this.#memory = memory;
    this.#message = message;
    forgotten.register(this, memory, this);
  }

  static {
    read = (owner) => {
      if (owner.#memory === null) {
        throw new Error(owner.#message);
      }
      return owner.#memory;
    };
  }

  get closed() {
    return this.#memory === null;
  }

  close() {
    this.#memory?.fill(0);
    this.#memory = null;
    forgotten.unregister(this);
  }

  toJSON() {
    throw new TypeError(`a ${this.constructor.name} is not serialised`);
  }
}
if (Symbol.dispose) {
  Owner.prototype[Symbol.dispose] = Owner.prototype.close;
}

/** The memory of an object of a class, for the library's calls. */
function memoryOf(owner, kind = Owner) {
  if (!(owner instanceof kind)) {
    throw new TypeError(`an object of the class ${kind.name} is needed`);
  }
  return read(owner);
}

module.exports = { Owner, memoryOf };
