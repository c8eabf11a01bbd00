// What a walk finds wrong with a menu: rows that no key reaches, and rows that no key leaves.
#pragma once

#include "rules/findings.h"
#include "walk/walk.h"

// Settled as the menu asks.
Findings findings_of(const Walk &walk);
