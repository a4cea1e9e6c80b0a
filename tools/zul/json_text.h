#pragma once
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "secret_bytes.h"

// Texts of JSON (RFC 8259), all ASCII and UTF-8. Their memory is wiped, as some hold keys.
namespace tool {

class JsonArray;

// JsonObject gathers the members of an object in their order. A byte that is not UTF-8 becomes U+FFFD; what
// could steer a terminal is escaped.
class JsonObject {
  public:
    JsonObject& add(std::string_view name, std::string_view text);
    JsonObject& add(std::string_view name, const std::string& text) {
        return add(name, std::string_view(text));
    }
    JsonObject& add(std::string_view name, const char* text) { return add(name, std::string_view(text)); }
    JsonObject& add(std::string_view name, bool truth);
    JsonObject& add(std::string_view name, std::integral auto number) {
        return add_raw(name, std::to_string(number));
    }
    JsonObject& add(std::string_view name, const JsonObject& object);
    JsonObject& add(std::string_view name, const JsonArray& array);
    // add_file adds the name of a file, which the system has in its own encoding.
    JsonObject& add_file(std::string_view name, const std::string& file);
    JsonObject& add_hex(std::string_view name, const unsigned char* bytes, size_t count);
    JsonObject& add_raw(std::string_view name, std::string_view json);

    // join adds the members of another object; join_text those of an object that the library has written.
    JsonObject& join(const JsonObject& other);
    JsonObject& join_text(std::string_view json);

    bool is_empty() const { return members_.empty(); }
    SecretBytes text() const;

  private:
    friend class JsonArray;
    void begin(std::string_view name);

    SecretBytes members_;
};

class JsonArray {
  public:
    JsonArray& add(std::string_view text);
    JsonArray& add(const JsonObject& object);
    JsonArray& add_file(const std::string& file);
    bool is_empty() const { return items_.empty(); }

  private:
    friend class JsonObject;
    void begin();

    SecretBytes items_;
};

} // namespace tool
