// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <QTextCursor>
#include <vector>

/// Qt lays a paragraph out whole at each key, which for a long one takes seconds to minutes. So a long one is
/// shown in several blocks, with joints between them that are no part of the text.
namespace platform::desktop {

/// The places in a paragraph where a block ends and the next begins, in order; none in most.
std::vector<qsizetype> jointsIn(QStringView paragraph);

/// After an edit, as part of it for undo: takes away the joints of a block that has become empty, and divides one that
/// has grown too long. Leaves a block alone in which an input method composes: its layout holds what is open.
void arrangeBlock(QTextCursor cursor);

enum class Direction { Backward, Forward };

/// Puts a cursor without a selection that is next to a joint on its other side, which is the same place in the text.
void stepOverJoints(QTextCursor&, Direction);

/// Removes the selection, or what is between the cursor and the end of its paragraph.
void removeRestOfParagraph(QTextCursor cursor);

/// Whether the two positions are the same place in the text, on both sides of a joint.
bool onlyJointBetween(const QTextDocument&, int position, int other);

}  // namespace platform::desktop
