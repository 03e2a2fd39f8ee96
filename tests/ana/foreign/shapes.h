/* Copyright (c) The authors. All rights reserved.
 * Licensed to nobody in particular. */

/**
 * @file shapes.h
 * @brief Shapes and what they measure.
 */
#pragma once

/// Everything about shapes.
namespace shapes {

/*! \brief A shape in the plane.
 *
 *  Use `area()` or \ref perimeter "the perimeter"; see {@link Circle} and <b>not</b> @p this.
 *
 *  - one kind
 *    goes on
 *  - *another* kind
 *
 *  \code{.cpp}
 *  Shape s;
 *    s.area(); // 100% at $5
 *  \endcode
 */
class Shape {
public:
  /**
   * Scales the shape.
   *
   * @param[in] factor  how much; not 0,
   *                    and never negative
   * @param about the point that stays
   * @return whether it worked
   *
   * Further details.
   * @throws std::range_error if the factor is 0
   * @see Shape::area, http://example.org/x
   * @deprecated since 2.0
   */
  bool scale(double factor, Point about);

  //! \returns the area in m^2 at `C:\new`
  //! \note Never \b negative; \unknown stays, and so does me@example.org
  virtual double area() const = 0;

  int count; ///< how many \a points there are
  int first; /**< The first. */
  int size;  // plain, behind
  // About the last one.
  int last;

  // Plain and in front.
  //
  // Second paragraph.
  void plain();

  // Accessors

  void undocumented();

  void inline_body() {
    // not documentation
    count = 0; // nor this
  }
  int next;
};

/// Kinds of shapes.
enum Kind {
  Round,  ///< without corners
  /** with corners */
  Angular
};

enum Mode { on, /*!< yes */ off /*!< no */ };

/// <summary>Adds two numbers.</summary>
/// <param name="a">the first</param>
/// <returns>the <c>sum</c></returns>
int add(int a /* unused */, int b);
/* Described behind its declaration. */

class Forward;
// NOLINTNEXTLINE
int total(int n);

} // namespace shapes
