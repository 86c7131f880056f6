// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "suggestion/suggestion_provider.h"

#include <string>
#include <vector>

namespace vorpel {

// The translation from strings of code points to the engine's records, and the two questions.

/// `outFirst` tells that the first word was refused, `outSecond` that it may replace the typed one.
/// The word must have 1 to 48 code points. May throw std::runtime_error.
std::vector<std::string> getSuggestionForInput(const std::u32string& word, const std::u32string& prevWord,
                                               SuggestionProvider* provider, bool& outFirst, bool& outSecond,
                                               SuggestionProvider::KeyCoordinate* coordinate);

/// As `getSuggestionForInput`, with the full records.
RankedSuggestions getRankedSuggestionForInput(const std::u32string& word, const std::u32string& prevWord,
                                              SuggestionProvider* provider,
                                              SuggestionProvider::KeyCoordinate* coordinate);

/// Only `prevWord` plays a part; the two flags are left alone.
std::vector<std::string> getPredictionForInput(const std::u32string& word, const std::u32string& prevWord,
                                               SuggestionProvider* provider, bool& outFirst, bool& outSecond,
                                               SuggestionProvider::KeyCoordinate* coordinate);

/// As `getPredictionForInput`, with the full records.
RankedSuggestions getRankedPredictionForInput(const std::u32string& prevWord, SuggestionProvider* provider);

}  // namespace vorpel
