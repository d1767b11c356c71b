#pragma once

// The shapes of the built-in factories. A factory holds nothing but its
// interface pointer (the registry deletes it through the interface), so each
// kind is a stateless template over the control it makes.

#include "PropUiOptions.h"
#include "PropUiQWidget.h"
#include "PropUiQWidgetFactory.h"
#include <type_traits>

namespace propui
{

/** Finishes a control the way every factory does: the caller's tool-tip bit is kept. */
template <class Control>
Control* withToolTipBit(Control* control, int options)
{
  control->setOptions(control->getOptions() | (options & PropUiOption::kToolTipFilter));
  return control;
}

/**
 * Makes the control and keeps only the caller's tool-tip bit. With
 * BareEditor, an item view gets the same control built without any option.
 */
template <class Control, bool BareEditor = false>
class PlainFactory : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    return withToolTipBit(new Control(parent), options);
  }
  PropUiQWidget* createEditor(int options, QWidget* parent) override
  {
    if (BareEditor)
      return new Control(parent);
    return createWidget(options, parent);
  }
};

/** Gives the control a fixed option word, whatever the caller asked, and keeps only the caller's tool-tip bit. */
template <class Control, int Options>
class FixedOptionsFactory : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    auto* control = new Control(parent);
    control->setOptions(Options);
    return withToolTipBit(control, options);
  }
  PropUiQWidget* createEditor(int options, QWidget* parent) override { return createWidget(options, parent); }
};

/** Makes the control for a panel; an item view gets the bare Editor instead, built without any option. */
template <class Control, class Editor>
class CellEditorFactory : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    return withToolTipBit(new Control(parent), options);
  }
  PropUiQWidget* createEditor(int, QWidget* parent) override { return new Editor(parent); }
};

/**
 * Hands the caller's whole option word to the control, whose bits then mean
 * what it makes of them. With BareEditor, an item view gets the same control
 * built without any option.
 */
template <class Control, bool BareEditor = false>
class PassOptionsFactory : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    auto* control = new Control(parent);
    control->setOptions(options);
    return withToolTipBit(control, options);
  }
  PropUiQWidget* createEditor(int options, QWidget* parent) override
  {
    if (BareEditor)
      return new Control(parent);
    return createWidget(options, parent);
  }
};

/**
 * A line-edit kind: the multi-line form for kMultiLine, the text combo for the
 * combo bits (when the kind has one), otherwise the plain control, which
 * also keeps the caller's kElided. Editor, when not void, is the bare
 * control an item view gets instead, built without any option step.
 */
template <class Control, class MultiLine, class TextCombo, int ComboBits, class Editor = void>
class LineEditFactory : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    PropUiQWidget* control = nullptr;
    if (options & PropUiOption::kMultiLine)
      control = new MultiLine(parent);
    else if (ComboBits != 0 && (options & ComboBits))
      control = makeCombo(parent);
    if (!control)
    {
      control = new Control(parent);
      if (options & PropUiOption::kElided)
        control->setOptions(control->getOptions() | PropUiOption::kElided);
    }
    return withToolTipBit(control, options);
  }
  PropUiQWidget* createEditor(int options, QWidget* parent) override
  {
    if constexpr (std::is_void<Editor>::value)
      return createWidget(options, parent);
    else
      return new Editor(parent);
  }

private:
  static PropUiQWidget* makeCombo(QWidget* parent)
  {
    if constexpr (std::is_void<TextCombo>::value)
      return nullptr;
    else
      return new TextCombo(parent);
  }
};

/**
 * A choice kind (check boxes, switches): the text combo for kTextCombo, otherwise
 * the control, which is handed the caller's whole option word when
 * PassOptions is set.
 */
template <class Control, class TextCombo, bool PassOptions>
class ChoiceFactory : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    if (options & PropUiOption::kTextCombo)
      return withToolTipBit(new TextCombo(parent), options);
    auto* control = new Control(parent);
    if (PassOptions)
      control->setOptions(options);
    return withToolTipBit(control, options);
  }
  PropUiQWidget* createEditor(int options, QWidget* parent) override { return createWidget(options, parent); }
};

} // namespace propui
