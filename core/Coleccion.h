#pragma once

#include <memory>
#include <vector>

#include "value/Fault.h"
#include "value/Variant.h"

namespace celdora {

// The platform's collection: items in the order they were added, counted
// from 1.
class Coleccion : public Object {
public:
    void Add(Variant item) { items_.push_back(std::move(item)); }
    // An object goes in as an object Variant built in place.
    void Add(std::shared_ptr<Object> item) { items_.emplace_back(std::move(item)); }
    int Count() const { return static_cast<int>(items_.size()); }
    const Variant& Item(int index) const {
        if (index < 1 || index > Count()) throw SubscriptOutOfRange();
        return items_[static_cast<std::size_t>(index - 1)];
    }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<Variant> items_;
};

}  // namespace celdora
