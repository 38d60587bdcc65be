// The calculation: a stack of operands, where references stay references until an operation wants their values.

#include "host/field/calculation.h"

#include <cmath>
#include <utility>

namespace kdhost::field {
namespace {

class Calculation {
public:
    Calculation(const Expression& expression, const Operands& operands)
        : m_expression(expression), m_operands(operands) {}

    Value run() {
        for (const Step& step : m_expression.steps) carryOut(step);
        Value result = valueOf(m_stack.back());
        if (result.kind == ValueKind::empty) result = Value::of(0.0);
        return result;
    }

private:
    struct Operand {
        int reference = -1;  ///< to cells, or none
        Value value;
    };
    /// What functions gather.
    struct Gathered {
        double sum = 0.0;
        std::size_t numbers = 0;
        bool error = false;

        void take(double number) {
            sum += number;
            ++numbers;
        }
        void take(const Value& value) {
            if (value.kind == ValueKind::number) take(value.number);
            if (value.kind == ValueKind::error) error = true;
        }
    };

    void carryOut(const Step& step);
    Value combined(Operation operation, const Value& left, const Value& right) const;
    void call(const Step& step);
    void gather(const Operand& operand, Gathered& gathered) const;
    Value valueOf(const Operand& operand) const;
    Value valueAt(const Sheet& sheet, int row, int column) const;
    void push(Value value) { m_stack.push_back({-1, std::move(value)}); }
    Value pop() {
        Value value = valueOf(m_stack.back());
        m_stack.pop_back();
        return value;
    }

    const Expression& m_expression;
    const Operands& m_operands;
    std::vector<Operand> m_stack;
};

void Calculation::carryOut(const Step& step) {
    switch (step.operation) {
        case Operation::number:
            push(Value::of(step.number));
            break;
        case Operation::cells:
            m_stack.push_back({step.index, {}});
            break;
        case Operation::child:
            push(m_operands.valueOfChild(step.index));
            break;
        case Operation::negate:
            push(combined(Operation::subtract, Value::of(0.0), pop()));
            break;
        case Operation::call:
            call(step);
            break;
        default: {
            const Value right = pop();
            const Value left = pop();
            push(combined(step.operation, left, right));
        }
    }
}

Value Calculation::combined(Operation operation, const Value& left, const Value& right) const {
    const auto isNumber = [](const Value& value) {
        return value.kind == ValueKind::number || value.kind == ValueKind::empty;
    };
    if (!isNumber(left) || !isNumber(right)) return Value::error();
    const double a = left.number;
    const double b = right.number;
    switch (operation) {
        case Operation::add:
            return Value::of(a + b);
        case Operation::subtract:
            return Value::of(a - b);
        case Operation::multiply:
            return Value::of(a * b);
        case Operation::divide:
            return Value::of(a / b);
        default:
            return Value::of(std::pow(a, b));
    }
}

void Calculation::call(const Step& step) {
    Gathered gathered;
    const std::size_t first = m_stack.size() - static_cast<std::size_t>(step.index);
    for (std::size_t i = first; i < m_stack.size(); ++i) gather(m_stack[i], gathered);
    m_stack.resize(first);
    const auto count = static_cast<double>(gathered.numbers);
    switch (step.function) {
        case Function::count:
            push(Value::of(count));
            break;
        case Function::sum:
            push(gathered.error ? Value::error() : Value::of(gathered.sum));
            break;
        case Function::average:
            push(gathered.error ? Value::error() : Value::of(gathered.sum / count));
            break;
    }
}

void Calculation::gather(const Operand& operand, Gathered& gathered) const {
    if (operand.reference < 0) {
        gathered.take(operand.value);
        return;
    }
    const auto place = static_cast<std::size_t>(operand.reference);
    const KdCellRange& cells = m_expression.references[place].reference.cells;
    const Sheet& sheet = *m_operands.sheetOf(place);
    for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
        const std::vector<Slot>& line = sheet.rows[static_cast<std::size_t>(row)];
        for (int column = cells.m_leftColumn; column <= cells.m_rightColumn; ++column) {
            const Slot& slot = line[static_cast<std::size_t>(column)];
            if (slot.kind == SlotKind::number) gathered.take(slot.number);
            if (slot.kind == SlotKind::error) gathered.error = true;
            if (slot.kind == SlotKind::field) gathered.take(m_operands.valueOfField(slot.cellField));
        }
    }
}

Value Calculation::valueOf(const Operand& operand) const {
    if (operand.reference < 0) return operand.value;
    const auto place = static_cast<std::size_t>(operand.reference);
    const KdCellRange& cells = m_expression.references[place].reference.cells;
    if (cells.m_topRow != cells.m_bottomRow || cells.m_leftColumn != cells.m_rightColumn) return Value::error();
    return valueAt(*m_operands.sheetOf(place), cells.m_topRow, cells.m_leftColumn);
}

Value Calculation::valueAt(const Sheet& sheet, int row, int column) const {
    const Slot& slot = sheet.at(row, column);
    switch (slot.kind) {
        case SlotKind::empty:
            return {};
        case SlotKind::number:
            return Value::of(slot.number);
        case SlotKind::error:
            return Value::error();
        case SlotKind::field:
            return m_operands.valueOfField(slot.cellField);
        default:
            return valueOfText(sheet.seen.content(row, column).text.c_str());
    }
}

}  // namespace

bool leadsToCells(const Reference& reference, const Sheet* sheet) {
    return !reference.broken && sheet != nullptr && !(reference.foreign && sheet->erased) &&
           sheet->contains(reference.cells);
}

Value calculate(const Expression& expression, const Operands& operands) {
    if (!expression.valid) return Value::error();
    for (std::size_t i = 0; i < expression.references.size(); ++i) {
        if (!leadsToCells(expression.references[i].reference, operands.sheetOf(i))) return Value::error();
    }
    return Calculation(expression, operands).run();
}

}  // namespace kdhost::field
