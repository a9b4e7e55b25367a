#pragma once

#include <stdexcept>

namespace tavlon {

// A move text, a Forsyth string or a move the board cannot use.
class BoardError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tavlon
