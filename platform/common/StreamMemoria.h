#pragma once

#include <cstddef>
#include <string>

#include "host/Ado.h"
#include "value/Variant.h"

namespace celdora::platform {

// "ADODB.Stream" kept in memory: the bytes between a file and a field.
// Binary use only, which is all the system makes of it; writing or reading
// a text stream is refused (3219).
class StreamMemoria : public host::Stream {
public:
    void Type(int type) override;
    int Type() const override;
    // Opens an empty stream at position 0.
    void Open() override;
    int State() const override;
    // Writes a byte array at the current position, growing the stream.
    void Write(const Variant& bytes) override;
    // The bytes from the position to the end; the position moves to the end.
    Variant read() override;
    // Writes the whole stream; adSaveCreateNotExist refuses a file that is
    // already there (3004), adSaveCreateOverWrite replaces it.
    void SaveToFile(const std::string& path, int option) override;
    // Replaces the contents with the file's bytes, at position 0.
    void LoadFromFile(const std::string& path) override;
    void Close() override;

    std::size_t Position() const { return posicion_; }
    std::size_t Size() const { return datos_.size(); }

private:
    void ExigirAbierto() const;
    void ExigirBinario() const;

    int tipo_ = host::adTypeText;  // ADO's starting type
    bool abierto_ = false;
    Bytes datos_;
    std::size_t posicion_ = 0;
};

}  // namespace celdora::platform
