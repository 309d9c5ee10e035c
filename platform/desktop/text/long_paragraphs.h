// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <QTextCursor>
#include <vector>

/// Qt lays out a whole block at each key press, which takes seconds to minutes if that is very long. So a long
/// paragraph is divided into several blocks, with joints between them (see line_ends.h).
namespace platform::desktop {

/// The places in a paragraph where a block ends and the next begins, in order; none in most.
std::vector<qsizetype> jointsIn(QStringView paragraph);

/// To be called after an edit; is undone with it. Removes the joints of a block that has become empty, and divides one
/// that has grown too long. Does nothing to a block with an open composition, which lives in the block's layout.
void arrangeBlock(QTextCursor cursor);

enum class Direction { Backward, Forward };

/// Moves a cursor that stands at a joint, without a selection, to the other side of it: the same place in the text.
void stepOverJoints(QTextCursor&, Direction);

/// Removes the selection, or what is between the cursor and the end of its paragraph.
void removeRestOfParagraph(QTextCursor cursor);

/// Whether the two positions are the same place in the text, on both sides of a joint.
bool onlyJointBetween(const QTextDocument&, int position, int other);

}  // namespace platform::desktop
