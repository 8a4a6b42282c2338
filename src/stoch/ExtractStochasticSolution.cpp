#include "stoch/ExtractStochasticSolution.h"

#include "basic/RunTimeError.h"

namespace quarnel02 {

const StochasticLine& ExtractStochasticSolution(const StochasticResult& result) {
    if (!result.Line) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "No design is possible at any volume: every line would need more than "
                           "4,095 parallel stations. Check the task times and the demand.");
    }
    return *result.Line;
}

}  // namespace quarnel02
