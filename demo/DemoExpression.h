#pragma once

#include <QString>

/**
 * Evaluates what a user may type into a number field: numbers with "." as
 * the decimal point, + - * / ^, parentheses, and abs, sqrt, sin, cos, tan
 * (degrees), ln, log. False for anything else.
 */
bool evaluateExpression(const QString& text, double& result);
