#include "ResultsBeforeDrag.h"

#include "WorkbenchState.h"
#include "modModelStore.h"

namespace strutwright {

ResultsBeforeDrag::ResultsBeforeDrag(const BoardController& board)
    : Members(MemberTable), Check(TheCheck), Ticks(board.TickedResults()) {}

void ResultsBeforeDrag::PutBack(BoardController& board) const {
  MemberTable = Members;
  TheCheck = Check;
  AnalysisDone = FlagTrue;
  board.TickResults(Ticks);
}

} // namespace strutwright
