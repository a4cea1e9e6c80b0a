#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "dictionary.h"
#include "guarded_block.h"

namespace endurance {

struct Room {
    uint8_t* data = nullptr;
    int claimed = 0;
    template<class Pointer>
    Pointer as() const {
        return reinterpret_cast<Pointer>(data);
    }
};

// Arguments draws what one call after the other is given.
class Arguments {
  public:
    Arguments(uint64_t seed, const Fixtures& fixtures);

    // begin starts the arguments of one call.
    void begin(const char* function);
    // rooms_hold_texts tells whether every text that was written ends inside its room. Numbers, and lengths
    // above the room, come without a text.
    bool rooms_hold_texts(int result) const;

    int number(const std::string& name);
    const char* text(const std::string& name);
    Room text_room(const char* name, const char* length);
    Room bytes_room(const char* name, const char* length);
    Room input(const char* name, const char* length);
    Room context_room(const char* name, const char* length);
    void* context(const char* name);
    // fixed gives a key or an IV, of the longest length that is asked for.
    uint8_t* fixed(const char* name, size_t size = 32);

    uint64_t draw(uint64_t below) { return next() % below; }
    bool chance(uint64_t of) { return draw(of) == 0; }
    // Half of the calls are tame, so that they get far; of the others most arguments are absurd in some way.
    bool absurd(uint64_t of) { return chance(wild_ ? of : 20 * of); }
    uint8_t* place(size_t size);

  private:
    uint64_t next();
    template<class List>
    auto& one_of(List& list) {
        return list[draw(std::size(list))];
    }
    int length(size_t* size);
    std::string garbage(size_t size);
    std::string any_text();

    uint64_t state_;
    const Fixtures& fixtures_;
    Dictionary dictionary_;
    std::string function_;
    std::array<GuardedBlock, 16> blocks_;
    size_t used_ = 0;
    bool wild_ = false;
    std::vector<Room> texts_;
    std::array<std::vector<uint8_t>, 3> contexts_;
};

} // namespace endurance
