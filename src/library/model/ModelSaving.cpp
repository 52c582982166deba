#include "library/model/ModelSaving.h"

#include "library/model/ModelContext.h"

#include "Store.h"

#include <utility>

namespace Quillstacks {

namespace {

constexpr int rowsInAStep = 100;

} // namespace

ModelSaving::ModelSaving(ModelContext& saved) : context(saved) {
    Q_ASSERT(!context.saving);
    context.saving = this;
}

ModelSaving::~ModelSaving() {
    context.saving = nullptr;
}

void ModelSaving::begin() {
    hasBegun = true;
    if (!context.hasChanges())
        return;
    context.requireLeaveToSave();
    writing = context.store->beginWriting(*context.pending);
}

bool ModelSaving::step() {
    if (!hasBegun)
        begin();
    if (std::exchange(disturbed, false)) {
        writing.reset(); // what it has written so far would not be all
        context.save();
        return false;
    }
    if (!writing)
        return false;
    try {
        if (context.store->continueWriting(*writing, rowsInAStep))
            return true;
    } catch (...) {
        writing.reset();
        throw;
    }
    writing.reset();
    context.markSaved();
    return false;
}

double ModelSaving::fraction() const {
    return writing ? writing->fraction() : hasBegun ? 1 : 0;
}

} // namespace Quillstacks
