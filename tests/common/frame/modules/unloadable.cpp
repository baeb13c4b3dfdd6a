// A module that needs a function which exists nowhere.
extern "C" {

int FunctionThatExistsNowhere();

int Call() {
  return FunctionThatExistsNowhere();
}
}
