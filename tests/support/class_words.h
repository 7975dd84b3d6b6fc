#pragma once

#include <map>
#include <string>

// What users are told that objects of a class are, by the names that the facts about the real
// documents give the classes: all those but meshes, points and point clouds.
const std::map<std::string, std::string>& ClassWords();

// By the same names: whether the geometry of a class is read.
bool IsReadClass(const std::string& class_name);
