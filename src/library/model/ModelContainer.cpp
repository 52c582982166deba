#include "library/model/ModelContainer.h"

#include "library/model/ModelContext.h"
#include "library/model/StoreError.h"

#include "Store.h"

namespace Quillstacks {

Schema Schema::current() {
    return {{QStringLiteral("Tag"), QStringLiteral("Prompt"), QStringLiteral("PromptVersion")},
            QStringLiteral("1.0.0")};
}

ModelContainer::ModelContainer(const Schema& schema, const ModelConfiguration& configuration) {
    const Schema known = Schema::current();
    if (schema.models != known.models || schema.version != known.version) {
        throw StoreError(StoreError::Kind::unknownSchema, configuration.path,
                         QStringLiteral("version %1 was asked for").arg(schema.version));
    }
    context.reset(new ModelContext(std::make_unique<Store>(configuration.path), configuration.allowsSave));
}

ModelContainer::~ModelContainer() = default;

} // namespace Quillstacks
