#include "Answer.h"

#include "Facts.h"
#include "Outcome.h"

namespace zyr {

int withJsonError(bool isJson, const std::string& file, Output& output,
                  const std::function<int()>& work) try {
    return work();
} catch (const FileTrouble& trouble) {
    if (isJson) {
        Facts facts;
        facts.word("error", trouble.what());
        facts.printJson(output.out, file);
    }
    throw;
}

}  // namespace zyr
