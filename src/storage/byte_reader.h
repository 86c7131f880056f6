// SPDX-License-Identifier: Apache-2.0
#pragma once

// The one reader of bytes that nobody vouches for. Files may be cut short, damaged or made to harm;
// whatever the bytes and whatever the position asked for, a ByteReader promises:
//
// - It reads no byte outside its view. Each read, skip and seek is checked before it is followed.
// - The first one that does not fit fails, and leaves the cursor where it stood. The failure sticks:
//   from then on ok() is false, integers read as 0, code points as NO_CODE_POINT, strings as empty,
//   and the cursor stays. So a record may be read in one go and ok() asked once behind it, as long as
//   no position taken from it is followed before.
// - A string read that runs off the end keeps what it had read, returns that count, and fails.
// - Every call ends after a number of steps bounded by its arguments and by the size of the view.
//   Loops around it are the caller's to bound: by ok(), or by a count that is.
// - It allocates nothing and throws nothing.
//
// It knows nothing of what the bytes mean: that a position lies inside the view does not make it the
// start of a record. All integers are big-endian.

#include "storage/byte_array_view.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace wordengine {

/// A cursor over a view; see above. Positions count bytes from the start of the view. The view's
/// bytes must outlive the reader. Cheap to make and to copy: two readers over one view are two cursors.
class ByteReader {
public:
    static constexpr int MINIMUM_ONE_BYTE_CHARACTER_VALUE = 0x20;
    static constexpr int MAXIMUM_ONE_BYTE_CHARACTER_VALUE = 0xFF;
    static constexpr int CHARACTER_ARRAY_TERMINATOR = 0x1F;

    /// A size below 0, or any size over a null pointer, is an empty view; a position outside (the end
    /// itself is inside) makes a reader that has failed.
    ByteReader(const uint8_t* data, int size, int position = 0)
        : data_(data), size_(data ? std::max(size, 0) : 0) {
        seek(position);
    }

    /// Only the first 2^31 - 1 bytes of a view can be reached.
    explicit ByteReader(ReadOnlyByteArrayView view, int position = 0)
        : ByteReader(view.data(), static_cast<int>(std::min(view.size(), MAX_VIEW_SIZE)), position) {}

    /// False once anything has failed.
    [[nodiscard]] bool ok() const { return !failed_; }
    [[nodiscard]] int position() const { return position_; }
    [[nodiscard]] int size() const { return size_; }
    /// The bytes between the cursor and the end.
    [[nodiscard]] int remaining() const { return size_ - position_; }

    /// Puts the reader into the failed state: for a caller that finds the content impossible.
    void fail() { failed_ = true; }

    /// Moves to a position from 0 to the size, both included.
    void seek(int position) {
        if (failed_) return;
        if (position < 0 || position > size_) {
            failed_ = true;
            return;
        }
        position_ = position;
    }

    /// Moves forward by a count of 0 or more bytes.
    void skip(int byteCount) {
        if (canRead(byteCount)) position_ += byteCount;
    }

    uint32_t readUint8() { return readBigEndian<1>(); }
    uint32_t readUint16() { return readBigEndian<2>(); }
    uint32_t readUint24() { return readBigEndian<3>(); }
    uint32_t readUint32() { return readBigEndian<4>(); }

    /// Reads `byteCount` bytes, 1 to 4; any other count fails.
    uint32_t readUint(int byteCount) {
        switch (byteCount) {
            case 1:
                return readUint8();
            case 2:
                return readUint16();
            case 3:
                return readUint24();
            case 4:
                return readUint32();
            default:
                failed_ = true;
                return 0;
        }
    }

    /// One code point: the byte itself from 0x20, three bytes below 0x1F. The terminator 0x1F is
    /// consumed and read as NO_CODE_POINT, as is a failure: ok() tells them apart. What comes out is
    /// from 0 to 0x1EFFFF, and so not always a Unicode code point.
    int readCodePoint() {
        if (!canRead(1)) return NO_CODE_POINT;
        const int firstByte = data_[position_];
        if (firstByte >= MINIMUM_ONE_BYTE_CHARACTER_VALUE) {
            ++position_;
            return firstByte;
        }
        if (firstByte == CHARACTER_ARRAY_TERMINATOR) {
            ++position_;
            return NO_CODE_POINT;
        }
        const int codePoint = static_cast<int>(readUint24());
        return failed_ ? NO_CODE_POINT : codePoint;
    }

    /// Reads code points up to the terminator into `outCodePoints` (room for `maxLength`) and returns
    /// their count. One code point more than `maxLength` is consumed at most: the terminator of a
    /// string that just fits, else the next code point of a longer one, whose rest stays unread.
    int readString(int maxLength, int* outCodePoints) {
        int count = 0;
        for (int codePoint = readCodePoint(); codePoint != NO_CODE_POINT && count < maxLength;
             codePoint = readCodePoint()) {
            outCodePoints[count++] = codePoint;
        }
        return count;
    }

    /// As readString, and stores nothing.
    int skipString(int maxLength) {
        int count = 0;
        for (int codePoint = readCodePoint(); codePoint != NO_CODE_POINT && count < maxLength;
             codePoint = readCodePoint()) {
            ++count;
        }
        return count;
    }

private:
    static constexpr size_t MAX_VIEW_SIZE = std::numeric_limits<int>::max();

    bool canRead(int byteCount) {
        if (failed_ || byteCount < 0 || byteCount > size_ - position_) failed_ = true;
        return !failed_;
    }

    template <int BYTE_COUNT>
    uint32_t readBigEndian() {
        if (!canRead(BYTE_COUNT)) return 0;
        uint32_t value = 0;
        for (int i = 0; i < BYTE_COUNT; ++i) {
            value = (value << 8) | data_[position_ + i];
        }
        position_ += BYTE_COUNT;
        return value;
    }

    const uint8_t* data_;
    int size_;
    int position_ = 0;
    bool failed_ = false;
};

}  // namespace wordengine
