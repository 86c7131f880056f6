// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Decodes what surrounds the nodes of an array: its count and its link to a continuation.
class PtNodeArrayReader {
public:
    virtual ~PtNodeArrayReader() = default;
    PtNodeArrayReader(const PtNodeArrayReader&) = delete;
    PtNodeArrayReader& operator=(const PtNodeArrayReader&) = delete;

    /// False, with nothing stored, if no array can begin at the position.
    virtual bool readPtNodeArrayInfoAndReturnIfValid(int ptNodeArrayPos, int* outPtNodeCount,
                                                     int* outFirstPtNodePos) const = 0;

    /// Stores the position of the array that continues the one ending at `forwardLinkPos`, NO_DICT_POS if
    /// none does. False, with nothing stored, if no array can end there.
    virtual bool readForwardLinkAndReturnIfValid(int forwardLinkPos, int* outNextPtNodeArrayPos) const = 0;

protected:
    PtNodeArrayReader() = default;
};

}  // namespace wordengine
