#include "library/model/Record.h"

#include "foundation/Clock.h"
#include "library/model/ModelContext.h"

namespace Quillstacks {

Record::~Record() = default;

void Record::beginLife() {
    identifier = randomUuid();
    created = Clock::now();
}

void Record::touch() {
    if (context)
        context->recordChanged(this);
}

} // namespace Quillstacks
