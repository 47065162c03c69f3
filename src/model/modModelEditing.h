#pragma once

#include "Grid.h"

#include <array>
#include <string_view>
#include <vector>

namespace strutwright {

// Changes of the model's structure.  They work on the data grids and read the model from them again.

/// Deletes a node and every member that meets it; the nodes behind it move up, and the members' node numbers follow.
/// n: a data row of GrJoints, or GridRangeError is thrown and nothing has changed.
/// ask: let the user confirm; where the user declines, the pick of the node is dropped and nothing has changed.
/// Members are judged by the node numbers from before the deletion, compared as the floats that they are.
void DeleteNode(int n, bool ask);

/// Deletes a member; the members behind it move up.  The same questions and failures as DeleteNode.
void DeleteMember(int m, bool ask);

/// Removes the rows of GrJoints or GrMembers that a deletion has blanked: those with a single blank in column 1.
/// Rows are numbered anew.  A grid that would be left without a data row keeps an empty one.
/// Where there is no such row, a message says so.  Returns whether rows were removed.
bool CompressGrid(Grid& grid);

/// Removes the rows of GrJoints or GrMembers that hold nothing: every data cell empty, blank or a numeric zero.
/// The node at the world origin is something: the row that FindNode finds there stays when it has a numeric x.
/// The members' node numbers follow the nodes; those that named a removed row become 0.
/// The tables must hold what the grids do.  Rows and message otherwise as for CompressGrid.
bool CompressZeroRows(Grid& grid);

/// Gives the nodes that the members in GrMembers name their new numbers.
/// newNumbers: (0..), entry n for the old number n.  A text without a number, and a number beyond it, stay as they are.
void RenumberMemberNodes(const std::vector<int>& newNumbers);

/// The common ending of all that edits the grids: ends the analysis, reads the model from the grids, draws the truss.
void AfterModelEdit();

/// Discards a key press that no number is written with by setting `key` to 0.  Digits, the point, backspace and, where
/// allowed, the minus pass, wherever in the text they are typed.
/// key: the character's code.
void FilterNumericKey(char32_t& key, bool allowMinus);

/// A text box for a number, by its name.
struct NumericBox {
  std::string_view name;
  bool allowMinus;
};

/// The text boxes whose key presses go through FilterNumericKey.
inline constexpr std::array<NumericBox, 13> NumericBoxes{{
    {"eTxt", false},
    {"aTxt", false},
    {"xnlTxt", true},
    {"ynlTxt", true},
    {"nLineNoTxt", false},
    {"nLineX1Txt", true},
    {"nLineY1Txt", true},
    {"nLineX2Txt", true},
    {"nLineY2Txt", true},
    {"xSpaceTxt", false},
    {"ySpaceTxt", false},
    {"snapRtxt", false},
    {"snapSNtxt", false},
}};

} // namespace strutwright
