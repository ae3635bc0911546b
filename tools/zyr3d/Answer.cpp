#include "Answer.h"

#include "Facts.h"
#include "Outcome.h"

namespace zyr {

int withJsonError(bool isJson, const std::string& file, Output& output,
                  const std::function<int()>& work) try {
    return work();
} catch (...) {
    if (isJson) {
        Facts facts;
        facts.word("error", troubleText(file));
        facts.printJson(output.out, file);
    }
    throw;
}

}  // namespace zyr
