#pragma once

/// The whole library.

#include "Differ/BatchUpdate.h"
#include "Differ/Diff.h"
#include "Differ/DiffTraces.h"
#include "Differ/DoublyLinkedList.h"
#include "Differ/ExtendedDiff.h"
#include "Differ/ExtendedPatch.h"
#include "Differ/LinkedList.h"
#include "Differ/NestedBatchUpdate.h"
#include "Differ/NestedDiff.h"
#include "Differ/NestedExtendedDiff.h"
#include "Differ/Patch.h"
