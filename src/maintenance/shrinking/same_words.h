#ifndef MAINTENANCE_SHRINKING_SAME_WORDS_H
#define MAINTENANCE_SHRINKING_SAME_WORDS_H

#include <string>

#include "maintenance/commits/answer.h"

namespace maintenance {

/// There is a message or a warning, or no answer at all because of what the library did.
bool says_something(const Answer &answer);

/// The element would tell the operator the same: the same point the same message, or the same first warning and no
/// rejection; or the library fails alike. Precondition: the other answer says something.
bool draws_same_words(const Answer &answer, const Answer &other);

/// "rejected [RULE] by POINT: TEXT", of an answer that says something.
std::string words_text(const Answer &answer);

}  // namespace maintenance

#endif
