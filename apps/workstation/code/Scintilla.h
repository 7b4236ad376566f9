#pragma once

#include <QAbstractScrollArea>

// The headers of the editor are written with the two keywords that this program has disabled.
#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <Qsci/qscicommandset.h>
#include <Qsci/qscilexercustom.h>
#include <Qsci/qsciscintilla.h>
#undef signals
#undef slots
