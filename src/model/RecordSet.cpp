#include "model/RecordSet.h"

#include <utility>

#include "basic/RunTimeError.h"
#include "model/RecordSetImpl.h"

namespace quarnel02 {

RecordSet::RecordSet() = default;
RecordSet::~RecordSet() = default;
RecordSet::RecordSet(RecordSet&& other) noexcept = default;
RecordSet& RecordSet::operator=(RecordSet&& other) noexcept = default;
RecordSet::RecordSet(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}

RecordSet::Impl& RecordSet::Open() const {
    if (!IsOpen()) {
        throw RunTimeError(ErrorKind::ObjectClosed, "The record set is closed.");
    }
    return *m_impl;
}

void RecordSet::Close() noexcept {
    m_impl.reset();
}

bool RecordSet::IsOpen() const noexcept {
    return m_impl && m_impl->IsOpen();
}

int RecordSet::RecordCount() const {
    return Open().RecordCount();
}

bool RecordSet::Eof() const {
    return Open().Eof();
}

bool RecordSet::Bof() const {
    return Open().Bof();
}

void RecordSet::MoveFirst() {
    Open().MoveFirst();
}

void RecordSet::MoveLast() {
    Open().MoveLast();
}

void RecordSet::MoveNext() {
    Open().MoveNext();
}

void RecordSet::MovePrevious() {
    Open().MovePrevious();
}

void RecordSet::Move(int rows) {
    Impl& set = Open();
    for (; rows > 0; --rows) {
        set.MoveNext();
    }
    for (; rows < 0; ++rows) {
        set.MovePrevious();
    }
}

const Value& RecordSet::Field(int position) const {
    return Open().Field(position);
}

const Value& RecordSet::Field(std::string_view name) const {
    return Field(Open().Position(name));
}

std::int16_t RecordSet::Integer(int position) const {
    return Open().Integer(position);
}

std::int16_t RecordSet::Integer(std::string_view name) const {
    return Integer(Open().Position(name));
}

double RecordSet::Number(int position) const {
    return Open().Number(position);
}

double RecordSet::Number(std::string_view name) const {
    return Number(Open().Position(name));
}

float RecordSet::Single(int position) const {
    return Open().Single(position);
}

float RecordSet::Single(std::string_view name) const {
    return Single(Open().Position(name));
}

std::string RecordSet::Text(int position) const {
    return Open().Text(position);
}

std::string RecordSet::Text(std::string_view name) const {
    return Text(Open().Position(name));
}

void RecordSet::Edit() {
    Open().Edit();
}

void RecordSet::AddNew() {
    Open().AddNew();
}

void RecordSet::Set(std::string_view name, const Value& value) {
    Open().Set(name, value);
}

void RecordSet::Update() {
    Open().Update();
}

void RecordSet::Delete() {
    Open().Delete();
}

void RecordSet::MoveToLastModified() {
    Open().MoveToLastModified();
}

}  // namespace quarnel02
