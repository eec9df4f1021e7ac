// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "abstractappender.h"

AbstractAppender::~AbstractAppender() = default;
